#include "store/schema.h"

#include "base/literals.h"
#include "store/engine.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace store {

using namespace base;

namespace {

constexpr FieldType number = FieldType::Number;
constexpr FieldType text = FieldType::Text;

constexpr Field setting_fields[]{{u"項目名", text}, {u"データ", text}};

constexpr Field waseihen_fields[]{
    {u"元号名", text},
    {u"略名", text},
    {u"開始日", number},
    {u"終了日", number},
    {u"差年", number},
};

constexpr Field bangou_fields[]{{u"番号名称", text}, {u"番号", number}};

constexpr Field allsystem_fields[]{
    {u"製品番号", text},
    {u"バージョン", text},
    {u"受信ファイルpafi", text},
    {u"個別dataファイル", text},
};

constexpr Field syain_fields[]{
    {u"システム番号", number},
    {u"社員番号", number},
    {u"社員名", text},
    {u"フリガナ", text},
    {u"第１グループ", text},
    {u"第２グループ", text},
    {u"第３グループ", text},
};

constexpr Field kinsyu_fields[]{{u"システム番号", number}, {u"種類名", text}};

constexpr Field kintype_fields[]{
    {u"システム番号", number},
    {u"勤務タイプ名", text},
    {u"連番", number},
    {u"曜日", number},
    {u"開始時間", number},
    {u"終了時間", number},
    {u"時間種類", number},
    {u"時間計算", number},
    {u"休憩勤務時間1", number},
    {u"休憩時間1", number},
    {u"休憩勤務時間2", number},
    {u"休憩時間2", number},
    {u"休憩勤務時間3", number},
    {u"休憩時間3", number},
};

constexpr Field syainkinmu_fields[]{{u"システム社員番号", number}, {u"勤務タイプ", number}};

constexpr Field kyutype_fields[]{
    {u"システム番号", number},
    {u"休暇名", text},
    {u"通常", number},
    {u"休出", number},
};

constexpr Field rovmei_fields[]{
    {u"社員システム番号", number},
    {u"出社日", number},
    {u"出社時間", number},
    {u"退社時間", number},
    {u"休憩時間", number},
    {u"勤務時間", number},
    {u"備考", text},
};

constexpr Field kinjisyu_fields[]{
    {u"社員システム番号", number},
    {u"年月日", number},
    {u"勤務種類", number},
    {u"時間", number},
};

constexpr Field kyumei_fields[]{
    {u"社員システム番号", number},
    {u"年月日", number},
    {u"システム番号", number},
    {u"休暇名", text},
    {u"休出", text},
};

constexpr Field kinnisu_fields[]{
    {u"社員システム番号", number},
    {u"年月", number},
    {u"システム番号", number},
    {u"休暇残業", number},
    {u"日数１", number},
};

/// The fields of a posted row, and behind them why a row couldn't be applied.
constexpr Field jyusin_error_fields[]{
    {u"1", text},
    {u"2", text},
    {u"3", text},
    {u"4", text},
    {u"5", text},
    {u"6", text},
    {u"7", text},
    {u"8", text},
    {u"9", text},
    {u"10", text},
    {u"11", text},
    {u"12", text},
    {u"13", text},
    {u"14", text},
    {u"15", text},
    {u"16", text},
    {u"17", text},
    {u"18", text},
    {u"19", text},
    {u"20", text},
    {u"21", text},
    {u"22", text},
    {u"23", text},
    {u"24", text},
    {u"25", text},
    {u"26", text},
    {u"27", text},
    {u"28", text},
    {u"29", text},
    {u"30", text},
    {u"31", text},
    {u"32", text},
    {u"33", text},
    {u"34", text},
    {u"35", text},
    {u"36", text},
    {u"37", text},
    {u"38", text},
    {u"39", text},
    {u"40", text},
    {u"41", text},
    {u"42", text},
    {u"43", text},
    {u"44", text},
    {u"45", text},
    {u"46", text},
    {u"47", text},
    {u"48", text},
    {u"49", text},
    {u"理由", text},
};
constexpr int posted_fields = 49;
constexpr std::span<const Field> jyusin_fields(jyusin_error_fields, posted_fields);

/// A day as it was read, as it is typed, and how it stands.
constexpr Field sitagaki_fields[]{
    {u"社員システム番号", number},
    {u"年月日", number},
    {u"前出社時間", text},
    {u"前退社時間", text},
    {u"前休憩時間", text},
    {u"前備考", text},
    {u"前休暇番号", text},
    {u"前休暇名", text},
    {u"前休出", text},
    {u"出社時間", text},
    {u"退社時間", text},
    {u"休憩時間", text},
    {u"備考", text},
    {u"休暇番号", text},
    {u"休暇名", text},
    {u"休出", text},
    {u"休憩手入力", number},
    {u"未計算", number},
    {u"登録済", number},
};

constexpr Field sitagaki_nissu_fields[]{
    {u"社員システム番号", number},
    {u"年月", number},
    {u"種類", text},
    {u"日数", text},
};

constexpr Field kakuninzumi_fields[]{{u"社員システム番号", number}, {u"年月", number}};

/// A closing of a month, and its reopening.
constexpr Field simekiri_fields[]{
    {u"年月", number},
    {u"締日時", text},
    {u"締端末", text},
    {u"解除日時", text},
    {u"解除端末", text},
};

constexpr Field simekiri_kei_fields[]{
    {u"年月", number},
    {u"社員システム番号", number},
    {u"種類", text},
    {u"値", number},
};

constexpr Table comsys_tables[]{
    {u"kihon", setting_fields},
    {u"waseihen", waseihen_fields},
    {u"bangou", bangou_fields},
    {u"syain", syain_fields},
};
constexpr Table allsystem_tables[]{{u"allsystem", allsystem_fields}};
constexpr Table rovdata_tables[]{
    {u"syain", syain_fields},
    {u"kinsyu", kinsyu_fields},
    {u"kintype", kintype_fields},
    {u"syainkinmu", syainkinmu_fields},
    {u"kyutype", kyutype_fields},
    {u"rovmei", rovmei_fields},
    {u"kinjisyu", kinjisyu_fields},
    {u"kyumei", kyumei_fields},
    {u"kinnisu", kinnisu_fields},
    {u"rov_kihon", setting_fields},
};
constexpr Table losys_tables[]{{u"losystem", setting_fields}};
constexpr Table exchange_tables[]{{u"jyusin", jyusin_fields}, {u"jyusin_error", jyusin_error_fields}};
constexpr Table drafts_tables[]{
    {u"sitagaki", sitagaki_fields},
    {u"sitagaki_nissu", sitagaki_nissu_fields},
    {u"kakuninzumi", kakuninzumi_fields},
};

constexpr Table closings_tables[]{
    {u"simekiri", simekiri_fields},
    {u"simekiri_kei", simekiri_kei_fields},
};

constexpr Index comsys_indexes[]{
    {u"kihon_key", u"kihon", u"\"項目名\""},
    {u"bangou_key", u"bangou", u"\"番号名称\""},
    {u"syain_key", u"syain", u"\"システム番号\""},
    {u"syain_number", u"syain", u"\"社員番号\""},
};
// One index leads every query of the day tables: an employee's days, in their order. The month's total, day 32, lies
// behind the month's last day, so one range takes it in; an "or" would make the engine read all the employee's months.
constexpr Index rovdata_indexes[]{
    {u"syain_key", u"syain", u"\"システム番号\""},
    {u"kinsyu_key", u"kinsyu", u"\"システム番号\""},
    {u"kintype_key", u"kintype", u"\"システム番号\", \"曜日\", \"連番\""},
    {u"syainkinmu_key", u"syainkinmu", u"\"システム社員番号\""},
    {u"kyutype_key", u"kyutype", u"\"システム番号\""},
    {u"rovmei_key", u"rovmei", u"\"社員システム番号\", \"出社日\""},
    {u"kinjisyu_key", u"kinjisyu", u"\"社員システム番号\", \"年月日\""},
    {u"kyumei_key", u"kyumei", u"\"社員システム番号\", \"年月日\""},
    {u"kinnisu_key", u"kinnisu", u"\"社員システム番号\", \"年月\""},
    {u"rov_kihon_key", u"rov_kihon", u"\"項目名\""},
};
constexpr Index losys_indexes[]{{u"losystem_key", u"losystem", u"\"項目名\""}};
constexpr Index drafts_indexes[]{
    {u"sitagaki_key", u"sitagaki", u"\"社員システム番号\", \"年月日\""},
    {u"sitagaki_nissu_key", u"sitagaki_nissu", u"\"社員システム番号\", \"年月\""},
    {u"kakuninzumi_key", u"kakuninzumi", u"\"社員システム番号\", \"年月\""},
};

constexpr Index closings_indexes[]{
    {u"simekiri_key", u"simekiri", u"\"年月\""},
    {u"simekiri_kei_key", u"simekiri_kei", u"\"年月\", \"社員システム番号\""},
};

struct Content {
    Kind kind;
    int application_id;
    std::span<const Table> tables;
    std::span<const Index> indexes;
};

constexpr std::array contents{
    Content{Kind::Comsys, 0x52560001, comsys_tables, comsys_indexes},
    Content{Kind::Allsystem, 0x52560002, allsystem_tables, {}},
    Content{Kind::Rovdata, 0x52560003, rovdata_tables, rovdata_indexes},
    Content{Kind::Losys, 0x52560004, losys_tables, losys_indexes},
    Content{Kind::Exchange, 0x52560005, exchange_tables, {}},
    Content{Kind::Drafts, 0x52560006, drafts_tables, drafts_indexes},
    Content{Kind::Closings, 0x52560007, closings_tables, closings_indexes},
    Content{Kind::Any, 0, {}, {}},
};

const Content& content_of(Kind kind) {
    return contents.at(size_t(kind));
}

/// The names come from the tables above; values never stand in a statement.
QString definition(const Table& table) {
    QStringList fields;
    for (const Field& field : table.fields)
        fields << u"\"%1\" %2"_s.arg(field.name, field.type == FieldType::Number ? u"integer" : u"text");
    return u"create table if not exists \"%1\" (%2);\n"_s.arg(table.name, fields.join(u", "_s));
}

/// By this each fact of an employee's is found, so that a table can be parted by it.
constexpr QStringView employee_field = u"\"社員システム番号\"";

QString parted(const Table& table, int partitions) {
    const QString part = u"create table if not exists \"%1_%2\" partition of \"%1\""
                         " for values with (modulus %3, remainder %2);\n"_s;
    QString statements;
    for (int remainder = 0; remainder < partitions; ++remainder)
        statements += part.arg(table.name).arg(remainder).arg(partitions);
    return statements;
}

/// The order of texts is that of their bytes. Facts stand under their keys, with which every query of them begins;
/// other rows under their numbers.
QString server_definition(Kind kind, const Table& table, int partitions) {
    const Index* key = key_of_facts(kind, table.name);
    QStringList fields;
    for (const Field& field : table.fields) {
        const QString type = field.type == FieldType::Number ? u"bigint"_s : u"text collate \"C\""_s;
        const bool in_key = key && key->columns.contains(quoted(field.name.toString()));
        fields << u"\"%1\" %2%3"_s.arg(field.name, type, in_key ? u" default 0"_s : QString());
    }
    fields << u"rowid bigint generated by default as identity"_s
           << (key ? u"constraint \"%1\" primary key (%2, rowid)"_s.arg(key->name, key->columns)
                   : u"primary key (rowid)"_s);
    const bool by_employee = partitions > 0 && key && key->columns.contains(employee_field);
    const QString how = by_employee ? u" partition by hash (%1)"_s.arg(employee_field) : QString();
    return u"create table if not exists \"%1\" (%2)%3;\n"_s.arg(table.name, fields.join(u", "_s), how) +
           parted(table, by_employee ? partitions : 0);
}

/// In the order that is asked for: Null before all else.
QString server_definition(const Index& index) {
    const QString columns = index.columns.toString().replace(u", "_s, u" nulls first, "_s) + u" nulls first"_s;
    return u"create index if not exists \"%1\" on \"%2\" (%3);\n"_s.arg(index.name, index.table, columns);
}

QString definition(const Index& index) {
    return u"create index if not exists \"%1\" on \"%2\" (%3);\n"_s.arg(index.name, index.table, index.columns);
}

} // namespace

const Index* key_of_facts(Kind kind, QStringView table) {
    constexpr QStringView facts[]{
        u"rovmei_key", u"kinjisyu_key", u"kyumei_key", u"kinnisu_key", u"simekiri_key", u"simekiri_kei_key"};
    const std::span<const Index> indexes = indexes_of(kind);
    const auto key = std::ranges::find_if(indexes, [&](const Index& index) {
        return index.table == table && std::ranges::find(facts, index.name) != std::end(facts);
    });
    return key == indexes.end() ? nullptr : &*key;
}

bool never_null(QStringView field) {
    constexpr QStringView keys[]{u"rowid", u"社員システム番号", u"出社日", u"年月日", u"年月"};
    return std::ranges::find(keys, field) != std::end(keys);
}

std::span<const Table> tables_of(Kind kind) {
    return content_of(kind).tables;
}

std::span<const Index> indexes_of(Kind kind) {
    return content_of(kind).indexes;
}

int application_id(Kind kind) {
    return content_of(kind).application_id;
}

QString file_definition_of(Kind kind) {
    QString statements;
    for (const Table& table : tables_of(kind))
        statements += definition(table);
    for (const Index& index : indexes_of(kind))
        statements += definition(index);
    return statements +
           u"pragma application_id=%1; pragma user_version=%2;"_s.arg(application_id(kind)).arg(schema_version);
}

QString server_definition_of(Kind kind, int partitions) {
    QString statements;
    for (const Table& table : tables_of(kind))
        statements += server_definition(kind, table, partitions);
    for (const Index& index : indexes_of(kind))
        if (key_of_facts(kind, index.table) != &index)
            statements += server_definition(index);
    return statements;
}

void add_missing_tables(Database& database, Kind kind) {
    const QStringList names = Engine::of(database).names();
    const auto there = [&](const auto& wanted) { return names.contains(wanted.name.toString()); };
    if (std::ranges::all_of(tables_of(kind), there) && std::ranges::all_of(indexes_of(kind), there))
        return;
    Transaction transaction(database);
    database.exec(Engine::of(database).definition_of(kind).toStdString());
    transaction.commit();
}

} // namespace store
