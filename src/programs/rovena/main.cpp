#include "frame/doorbell.h"
#include "platform/paths.h"
#include "platform/rights.h"
#include "platform/screen.h"
#include "ui/application.h"
#include "ui/parts/style.h"
#include "ui/program.h"
#include "ui/qt_host.h"

/// How long a program that was started before is waited for. It answers at once, unless it is in the middle of
/// something that lets no event in.
constexpr std::chrono::seconds time_to_answer(3);

int main(int argc, char** argv) {
    platform::make_files_for(platform::program_folder());
    ui::leave_dumps(platform::program_folder());
    const std::jthread key = ui::derive_key_ahead(platform::program_folder());
    ui::QtHost host;
    ui::Application application(argc, argv, host);
    frame::Doorbell bell(platform::own_folder(), frame::doorbell_name(ui::Application::applicationDirPath()));
    if (!bell.comes_in(time_to_answer))
        return EXIT_SUCCESS;
    ui::apply_style(application);
    ui::Program program(host, ui::Application::applicationDirPath());
    bell.rung = [&] { program.come_up(); };
    program.makes_place = [&] { bell.leave(); };
    const int status = program.start();
    return program.running() ? ui::Application::exec() : status;
}
