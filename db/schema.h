// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// The statements that create the tables and indexes of an empty database.
QString databaseSchema();
