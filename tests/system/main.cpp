#include "clerk_at_work.h"
#include "ui/application.h"
#include "ui/parts/style.h"
#include "ui/qt_host.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ui::QtHost host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == QLatin1String("--clerk"))
        return whole::work(whole::PlaceOfWork::of(arguments.sliced(2)));
    return RUN_ALL_TESTS();
}
