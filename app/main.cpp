// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/application.h"
#include "app/program.h"
#include "db/bastovarin.h"
#include "platform/browser/browserpane.h"

int main(int argc, char *argv[])
{
    browser::prepareProcess();
    Application application(argc, argv);
    basTovarin::SetProgramFolder(QCoreApplication::applicationDirPath());
    browser::setPageFolder(basTovarin::ProgramFolder());
    Program program;
    return application.run([&program] { program.start(); });
}
