#include "base/literals.h"
#include "store/database.h"
#include "store/schema.h"

#include <QTemporaryDir>

using namespace base;
using namespace store;

namespace {

class ADatabase : public testing::Test {
protected:
    QTemporaryDir folder;
    QString path = folder.filePath(u"社員.mdb"_s);
};

TEST_F(ADatabase, HoldsEveryTableAndFieldOfItsKind) {
    for (const Kind kind : {Kind::Comsys, Kind::Allsystem, Kind::Rovdata, Kind::Losys, Kind::Exchange}) {
        Database database = Database::create(folder.filePath(QString::number(int(kind))), kind);
        for (const Table& table : tables_of(kind)) {
            Statement all = database.prepare(u"select * from \"%1\""_s.arg(table.name).toStdString());
            ASSERT_EQ(all.row().columns(), int(table.fields.size())) << table.name.toUtf8().toStdString();
            for (size_t i = 0; i < table.fields.size(); ++i)
                EXPECT_EQ(all.row().name(int(i)), table.fields[i].name);
        }
    }
}

} // namespace
