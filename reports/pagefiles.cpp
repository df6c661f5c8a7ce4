// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "reports/pagefiles.h"

#include "db/bastovarin.h"
#include "platform/access/connectionstring.h"

namespace pagefiles {

QString path(QStringView page)
{
    return dbaccess::systemPath(basTovarin::ProgramFolder() % page);
}

} // namespace pagefiles
