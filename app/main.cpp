// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/application.h"
#include "app/program.h"
#include "db/bastovarin.h"
#include "platform/browser/browserpane.h"
#include "upgrade/setup.h"

#include <QFileInfo>

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    Application application(argc, argv);
    const QString folder = QCoreApplication::applicationDirPath();
    // Where no launcher has put the folder together, what ships lies in it.
    if (const QString shipped = folder % u"/shipped"; QFileInfo::exists(shipped)) {
        upgrade::Setup setup(shipped, folder);
        if (setup.hasSomethingToTell() && !setup.settle())
            return 1;
    }
    basTovarin::SetProgramFolder(folder);
    browser::setPageFolder(basTovarin::ProgramFolder());
    Program program;
    return application.run([&program] { program.start(); });
}
