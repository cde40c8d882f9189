// Every road, walked without pictures over a company of its own.

#include "e2e/road/files.h"
#include "e2e/road/walker.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;

namespace {

struct Road : testing::TestWithParam<const char*> {
    void walk(const QStringList& company) {
        const QString artwork = qEnvironmentVariable("ROVENA_BIN") + u"/../artwork"_s;
        e2e::install(QStringList{drive.filePath(u"main"_s), u"--assets"_s, artwork} + company);
        e2e::Pictures none(e2e::Taken::No, QDir(drive.path()));
        EXPECT_NO_THROW(
            e2e::Walker(e2e::desk(), none, drive.filePath(u"main"_s)).walk(QString::fromLatin1(GetParam())));
    }
    const QTemporaryDir drive;
};

std::string name(const testing::TestParamInfo<const char*>& road) {
    return QString::fromLatin1(road.param).replace(u'-', u'_').toStdString();
}

using OfANewCompany = Road;
using OfACompanyAtWork = Road;

} // namespace

TEST_P(OfANewCompany, IsWalkedToItsEnd) {
    walk({});
}

TEST_P(OfACompanyAtWork, IsWalkedToItsEnd) {
    walk({u"--sample"_s, u"12"_s, u"3"_s, u"--until"_s, u"202609"_s});
}

INSTANTIATE_TEST_SUITE_P(Road, OfANewCompany, testing::Values("new-company", "first-start"), name);
INSTANTIATE_TEST_SUITE_P(Road, OfACompanyAtWork,
    testing::Values("company", "corrected-day", "saved-twice", "top-button", "left-in-the-middle", "as-left", "search",
        "failed-save", "boxes", "report-conditions", "sizes", "masters", "settings", "drafts", "typed-month",
        "recorder", "overview", "speed"),
    name);
