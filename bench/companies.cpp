#include "bench/companies.h"

#include "install/install.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <map>

namespace bench {

namespace {

struct Company {
    QTemporaryDir folder{temporary_place()};
    base::Settings settings;

    Company(int employees, int months) {
        install::Options options;
        options.root = folder.path();
        options.assets = {QCoreApplication::applicationDirPath() + QStringLiteral("/../artwork")};
        options.sample = install::Sample{employees, months, last_month};
        install::run(options, folder.path(), [](const QString&) {});
        settings = settings_of(options);
    }
};

} // namespace

QString temporary_place() {
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + QStringLiteral("/bench-XXXXXX");
}

base::Settings& company(int employees, int months) {
    static std::map<std::pair<int, int>, Company> companies;
    return companies.try_emplace({employees, months}, employees, months).first->second.settings;
}

base::Settings& small_company() {
    return company(10, 1);
}

base::Settings& large_company() {
    return company(1000, 24);
}

} // namespace bench
