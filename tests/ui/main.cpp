#include "ui/fonts.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setFont(ui::screen_font());
    return RUN_ALL_TESTS();
}
