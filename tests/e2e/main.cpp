#include "e2e/road/desk.h"
#include "ui/application.h"
#include "ui/parts/style.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ui::Application application(argc, argv, e2e::desk());
    ui::apply_style(application);
    return RUN_ALL_TESTS();
}
