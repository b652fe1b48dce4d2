// The runner of the screen tests: the real forms need the program's
// application object, on the offscreen platform so that no display is
// needed.

#include "shell/screens/QuillonApplication.h"

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    if (std::getenv("QT_QPA_PLATFORM") == nullptr)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    quillon::QuillonApplication application(argc, argv);
    QApplication::setOrganizationName("QuillonTests");
    QApplication::setApplicationName("QuillonTests");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
