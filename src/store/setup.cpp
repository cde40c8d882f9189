#include "store/setup.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "platform/paths.h"
#include "store/files.h"
#include "store/schema.h"

#include <array>
#include <optional>

namespace store {

using namespace base;

namespace {

struct Product {
    QString code;
    QString version;
    QString receiver;
    QString data_file;
    qint64 row = 0;

    bool operator==(const Product&) const = default;
};

Product running_product(const base::Settings& settings) {
    return {settings.product_code(), settings.version_no(), receiver_path(settings), data_file_name.toString()};
}

std::optional<Product> registered(Database& allsystem, const base::Settings& settings) {
    Statement rows = allsystem.prepare(
        "select 製品番号, バージョン, 受信ファイルpafi, 個別dataファイル, rowid from allsystem order by rowid");
    while (rows.step()) {
        const Row row = rows.row();
        if (row.text(0).left(1) == settings.product_code().left(1))
            return Product{row.text(0), row.text(1), row.text(2), row.text(3), row.number(4)};
    }
    return std::nullopt;
}

void add(Database& allsystem, const Product& product) {
    allsystem
        .prepare("insert into allsystem (製品番号, バージョン, 受信ファイルpafi, 個別dataファイル) values (?, ?, ?, ?)")
        .bind(product.code, product.version, product.receiver, product.data_file)
        .run();
}

void change(Database& allsystem, const Product& product) {
    allsystem.prepare("update allsystem set 製品番号=?, バージョン=?, 受信ファイルpafi=? where rowid=?")
        .bind(product.code, product.version, product.receiver, product.row)
        .run();
}

/// The row as it has to be written, 0 being the place of a new one; nothing if it stands already.
std::optional<Product> due(Database& allsystem, const base::Settings& settings) {
    Product wanted = running_product(settings);
    const std::optional<Product> found = registered(allsystem, settings);
    if (found) {
        wanted.row = found->row;
        wanted.data_file = found->data_file;
    }
    return found == wanted ? std::nullopt : std::optional(wanted);
}

/// Whether the row was added. It is looked for again, as another PC may have been first.
bool write_due(Database& allsystem, const base::Settings& settings) {
    const std::optional<Product> product = due(allsystem, settings);
    if (!product)
        return false;
    const bool added = product->row == 0;
    added ? add(allsystem, *product) : change(allsystem, *product);
    return added;
}

constexpr std::array suite_tables{u"table_ver", u"gen_ari", u"nimeisai", u"nikoumoku"};

/// A database that is looked through. Those of other products of the suite, which may be absent, hold nothing of ours.
struct Walked {
    QString path;
    Kind kind;
};

QStringList suite_tables_in(const Walked& file) {
    Database database = Database::open(file.path, file.kind);
    add_missing_tables(database, file.kind);
    QStringList met;
    for (const char16_t* name : suite_tables)
        if (database.has_table(QString::fromUtf16(name)))
            met << QString::fromUtf16(name);
    return met;
}

} // namespace

QString receiver_path(const base::Settings& settings) {
    const QString program = u"system/exe/exe/"_s + platform::program_file(u"jyurovena.exe"_s);
    return platform::native(own_path(settings, platform::install_root(settings.install_drive), program));
}

std::unique_ptr<FirstStart> 初期セットアップ(const base::Settings& settings) {
    Database allsystem = Database::open(allsystem_path(settings), Kind::Allsystem);
    if (!due(allsystem, settings))
        return {};
    std::unique_ptr<FirstStart> start(new FirstStart(std::move(allsystem)));
    if (write_due(start->m_allsystem, settings))
        return start;
    start->stand();
    return {};
}

bool register_product(Database& allsystem, const base::Settings& settings) {
    Transaction transaction(allsystem);
    const bool added = write_due(allsystem, settings);
    transaction.commit();
    return added;
}

QStringList db追加_テーブル(const base::Settings& settings, SettingTables& tables) {
    const QString key = u"sokdataバージョン"_s;
    if (Val(tables.設定読込(rov_kihon, key)) == Val(table_stamp.toString()))
        return {};
    QStringList met;
    for (const Walked& file :
        {Walked{comsys_path(settings), Kind::Comsys}, Walked{rovdata_path(settings), Kind::Rovdata}})
        met += suite_tables_in(file);
    tables.設定書込(rov_kihon, key, table_stamp.toString());
    return met;
}

} // namespace store
