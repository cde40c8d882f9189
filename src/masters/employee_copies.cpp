#include "masters/employee_copies.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "masters/locked_file.h"
#include "platform/paths.h"
#include "store/files.h"

#include <QFileInfo>
#include <QStringList>
#include <list>

namespace masters {

using namespace base;

namespace {

struct Target {
    QString path;
    store::Kind kind;
};

enum class Holds { Text, WholeNumber, Decimal };

/// The fields of a copy, under their names in small letters.
using Fields = QHash<QString, Holds>;

struct Copy : LockedFile {
    using LockedFile::LockedFile;
    Fields fields;
};

QString key_of(const QString& field) {
    return field.toLower();
}

Holds held_by(const QString& type) {
    const auto reads = [&type](QStringView part) { return type.contains(part, Qt::CaseInsensitive); };
    if (reads(u"int"))
        return Holds::WholeNumber;
    return reads(u"real") || reads(u"floa") || reads(u"doub") || reads(u"single") ? Holds::Decimal : Holds::Text;
}

QStringList listed_files(const base::Settings& settings) {
    auto allsystem = store::Database::open(store::allsystem_path(settings), store::Kind::Allsystem);
    auto query = allsystem.prepare("select 個別dataファイル from allsystem order by rowid");
    QStringList files;
    while (query.step())
        files << platform::portable(Trim(query.row().text(0)));
    return files;
}

QList<Target> targets_of(const base::Settings& settings) {
    QList<Target> targets{{store::comsys_path(settings), store::Kind::Comsys}};
    QStringList known{QFileInfo(targets.front().path).canonicalFilePath()};
    const QString folder = QFileInfo(store::rovdata_path(settings)).path();
    for (const QString& file : listed_files(settings)) {
        const QFileInfo info(folder + u'/' + file);
        if (!info.isFile() || known.contains(info.canonicalFilePath()))
            continue;
        known << info.canonicalFilePath();
        targets << Target{info.filePath(), store::Kind::Any};
    }
    return targets;
}

Fields fields_of(store::Database& database) {
    Fields fields;
    for (const store::Column& column : database.columns_of(u"syain"_s))
        fields[key_of(column.name)] = held_by(column.type);
    return fields;
}

void require_fields(const Copy& copy, const QList<FieldText>& row) {
    QStringList wanted{u"システム番号"_s};
    for (const FieldText& field : row)
        wanted << field.name;
    for (const QString& name : wanted)
        if (!copy.fields.contains(key_of(name)))
            throw store::Error(store::Code::Other, copy.database.path(), {},
                u"社員マスター「syain」に項目「%1」がありません。"_s.arg(name));
}

/// Opens every copy that there is and takes its write lock.
void open_copies(std::list<Copy>& copies, const base::Settings& settings, const QList<FieldText>& row) {
    for (const Target& target : targets_of(settings)) {
        auto database = store::Database::open(target.path, target.kind);
        if (!database.has_table(u"syain"_s))
            continue;
        Copy& copy = copies.emplace_back(std::move(database));
        copy.fields = fields_of(copy.database);
        require_fields(copy, row);
    }
}

/// The names of the fields are those of the table; values are bound. The engine reads a decimal as Val does a whole
/// number: what leads the text, else 0.
QByteArray insertion_of(const Copy& copy, const QList<FieldText>& row) {
    QStringList names, places;
    for (const FieldText& field : row) {
        names << store::quoted(field.name);
        places << (copy.fields[key_of(field.name)] == Holds::Decimal ? u"cast(? as real)"_s : u"?"_s);
    }
    return u"insert into syain (%1) values (%2)"_s.arg(names.join(u", "), places.join(u", ")).toUtf8();
}

void add_row(Copy& copy, const QList<FieldText>& row) {
    const QByteArray sql = insertion_of(copy, row);
    auto insert = copy.database.prepare({sql.constData(), size_t(sql.size())});
    for (int i = 0; i < row.size(); ++i) {
        if (copy.fields[key_of(row[i].name)] == Holds::WholeNumber)
            insert.bind_at(i + 1, Val(row[i].text));
        else
            insert.bind_at(i + 1, Trim(row[i].text));
    }
    insert.run();
}

TakenRows replace_row(Copy& copy, qint64 number, const QList<FieldText>& row) {
    const TakenRows taken = take_rows(copy.database, u"syain"_s, number);
    if (!row.isEmpty())
        add_row(copy, row);
    return taken;
}

} // namespace

QList<TakenRows> replace_in_every_copy(const base::Settings& settings, qint64 number, const QList<FieldText>& row) {
    std::list<Copy> copies;
    open_copies(copies, settings, row);
    QList<TakenRows> taken;
    for (Copy& copy : copies)
        taken << replace_row(copy, number, row);
    for (Copy& copy : copies)
        copy.transaction.commit();
    return taken;
}

} // namespace masters
