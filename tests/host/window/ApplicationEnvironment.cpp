// The one QApplication of the host tests, made before the first test and never destroyed.
//
// An application that is destroyed at exit, among the static destructors, outlives Qt's own
// caches of fonts and glyphs (made later, so destroyed first), and its clean-up then touches
// them: the test program would crash after every test has passed. Made here, in a global test
// environment, it exists before any test asks for one, and the helpers that make an
// application on first use take this one.

#include <QApplication>

#include <gtest/gtest.h>

namespace {

class ApplicationEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        if (QCoreApplication::instance() == nullptr) {
            static int argc = 1;
            static char name[] = "host_test";
            static char* argv[] = {name, nullptr};
            new QApplication(argc, argv);
            QApplication::setQuitOnLastWindowClosed(false);
        }
    }
};

[[maybe_unused]] ::testing::Environment* const environment =
    ::testing::AddGlobalTestEnvironment(new ApplicationEnvironment);

} // namespace
