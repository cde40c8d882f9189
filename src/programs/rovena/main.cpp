#include "platform/paths.h"
#include "platform/rights.h"
#include "ui/application.h"
#include "ui/parts/style.h"
#include "ui/program.h"
#include "ui/qt_host.h"

int main(int argc, char** argv) {
    platform::make_files_for(platform::program_folder());
    const std::jthread key = ui::derive_key_ahead(platform::program_folder());
    ui::QtHost host;
    ui::Application application(argc, argv, host);
    ui::apply_style(application);
    ui::Program program(host, ui::Application::applicationDirPath());
    const int status = program.start();
    return program.running() ? ui::Application::exec() : status;
}
