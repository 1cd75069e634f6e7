#pragma once

#include <QApplication>
#include <QCoreApplication>

namespace host::testing {

/// The process's QApplication for host tests, made on first use (offscreen platform, set by
/// the test's environment). Any test that needs Qt's event loop or widgets calls this first;
/// an application made elsewhere before is used as it is.
inline QCoreApplication& testApplication() {
    if (QCoreApplication::instance() == nullptr) {
        static int argc = 1;
        static char name[] = "host_test";
        static char* argv[] = {name, nullptr};
        static QApplication app(argc, argv);
        QApplication::setQuitOnLastWindowClosed(false);
    }
    return *QCoreApplication::instance();
}

} // namespace host::testing
