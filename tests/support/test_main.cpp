#include <gtest/gtest.h>

#include <QApplication>

/// The main function of every test program: fonts and widgets need an application object.
int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
