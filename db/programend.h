// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

/// Thrown to end the program from wherever it is, after the user has been told why. The
/// application object catches it; nobody else should.
struct ProgramEnd
{
    int exitCode = 1;
};
