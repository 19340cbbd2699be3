// The one QApplication of the benchmark binary, offscreen, made on first use by the window benchmarks.
#pragma once

#include <QApplication>
#include <QByteArray>

inline QApplication& benchApplication()
{
    static int argc = 1;
    static char name[] = "rovanel_bench";
    static char* argv[] = {name, nullptr};
    static QApplication* application = [] {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        return new QApplication(argc, argv);
    }();
    return *application;
}
