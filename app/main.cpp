// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/light_look.h"
#include "app/tovrane.h"
#include "app/working_folder.h"

#include <QApplication>
#include <QDir>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    // The settings file and the engine are accessed by relative paths.
    QDir::setCurrent(workingFolder(QCoreApplication::applicationDirPath(), userWorkingFolder()));
    keepLightLook();
    auto *window = new tovrane; // deletes itself when it is closed
    window->show();
    return QApplication::exec();
}
