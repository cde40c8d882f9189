#include "bench/companies.h"

#include "install/install.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <map>

namespace bench {

namespace {

/// In memory where the system offers it: what is measured here is work, not the disk's mood.
QString place() {
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + QStringLiteral("/bench-XXXXXX");
}

struct Company {
    QTemporaryDir folder{place()};
    frame::Settings settings;

    Company(int employees, int months) {
        install::Options options;
        options.root = folder.path();
        options.sample = install::Sample{employees, months, last_month};
        install::run(options, folder.path(), [](const QString&) {});
        settings = settings_of(options);
    }
};

} // namespace

frame::Settings& company(int employees, int months) {
    static std::map<std::pair<int, int>, Company> companies;
    return companies.try_emplace({employees, months}, employees, months).first->second.settings;
}

frame::Settings& small_company() {
    return company(10, 1);
}

frame::Settings& large_company() {
    return company(1000, 24);
}

} // namespace bench
