#include "support/fake_host.h"
#include "ui/application.h"
#include "ui/parts/style.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    support::FakeHost host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    return RUN_ALL_TESTS();
}
