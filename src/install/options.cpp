#include "install/options.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <array>

namespace install {

using namespace base;

namespace {

bool take_number(const QString& text, int lowest, int highest, int& number) {
    bool is_number = false;
    const int value = text.toInt(&is_number);
    if (!is_number || value < lowest || value > highest)
        return false;
    number = value;
    return true;
}

bool take_partitions(const QString& text, int& partitions) {
    return take_number(text, 2, 256, partitions);
}

bool take_month(const QString& text, int& month) {
    int value = 0;
    if (!take_number(text, 190001, 209912, value) || value % 100 < 1 || value % 100 > 12)
        return false;
    month = value;
    return true;
}

/// The arguments on their way into the options. Why not QCommandLineParser: docs/decisions/0016.
class Reader {
public:
    explicit Reader(const QStringList& arguments) : m_rest(arguments) {}

    Request read() {
        while (!m_rest.isEmpty() && m_request.problem.isEmpty())
            take(m_rest.takeFirst());
        if (m_request.problem.isEmpty() && options().root.isEmpty())
            m_request.problem = u"ROOT is missing"_s;
        if (m_request.problem.isEmpty())
            m_request.problem = contradiction();
        if (options().sample && m_until != 0)
            options().sample->until = m_until;
        return m_request;
    }

private:
    using Setter = bool (*)(Reader&, const QString& value);
    struct Option {
        QStringView name;
        Setter set;
    };
    static const std::array<Option, 13> known_options;

    Options& options() { return m_request.options; }

    QString contradiction() {
        if (m_until != 0 && !options().sample)
            return u"--until needs --sample"_s;
        if (!options().data_server.isEmpty() && !options().server_root.isEmpty())
            return u"--data-server or --server-root, not both"_s;
        if (options().partitions > 0 && options().data_server.isEmpty())
            return u"--partitions needs --data-server"_s;
        const bool two_passwords = !options().share_password.isEmpty() && !options().share_password_file.isEmpty();
        return two_passwords ? u"--share-password or --share-password-file, not both"_s : QString();
    }

    void take(const QString& argument) {
        if (argument == u"--sample")
            take_sample();
        else if (argument.startsWith(u"--"))
            take_option(argument);
        else if (options().root.isEmpty())
            options().root = argument;
        else
            m_request.problem = u"one ROOT only: "_s + argument;
    }

    void take_option(const QString& name) {
        for (const Option& option : known_options) {
            if (option.name != name)
                continue;
            if (m_rest.isEmpty() || !option.set(*this, m_rest.takeFirst()))
                m_request.problem = u"%1 needs another value"_s.arg(name);
            return;
        }
        m_request.problem = u"unknown option: "_s + name;
    }

    void take_sample() {
        Sample sample;
        for (int* number : {&sample.employees, &sample.months}) {
            if (m_rest.isEmpty() || m_rest.first().isEmpty() || !m_rest.first().front().isDigit())
                break;
            if (!take_number(m_rest.takeFirst(), 1, 100'000, *number))
                m_request.problem = u"--sample needs other numbers"_s;
        }
        options().sample = sample;
    }

    QStringList m_rest;
    Request m_request;
    int m_until = 0;
};

bool take_place_of_backup(const QString& text, QString& place) {
    place = text == u"elsewhere" ? u"1"_s : text == u"here" ? u"0"_s : QString();
    return !place.isEmpty();
}

/// An empty value would be no value, and a setting isn't emptied by it.
bool keep(QString& place, const QString& value) {
    place = value;
    return !value.isEmpty();
}

constexpr std::array<Reader::Option, 13> Reader::known_options{{
    {u"--use-class", [](Reader& r, const QString& v) { return take_number(v, 0, 2, r.options().use_class.emplace()); }},
    {u"--server-name", [](Reader& r, const QString& v) { return keep(r.options().server_name, v); }},
    {u"--info-server", [](Reader& r, const QString& v) { return keep(r.options().info_server, v); }},
    {u"--server-root", [](Reader& r, const QString& v) { return keep(r.options().server_root, v); }},
    {u"--data-server", [](Reader& r, const QString& v) { return keep(r.options().data_server, v); }},
    {u"--partitions", [](Reader& r, const QString& v) { return take_partitions(v, r.options().partitions); }},
    {u"--server-backup",
        [](Reader& r, const QString& v) { return take_place_of_backup(v, r.options().server_backup); }},
    {u"--share-user", [](Reader& r, const QString& v) { return keep(r.options().share_user, v); }},
    {u"--share-password", [](Reader& r, const QString& v) { return keep(r.options().share_password, v); }},
    {u"--share-password-file", [](Reader& r, const QString& v) { return keep(r.options().share_password_file, v); }},
    {u"--printer", [](Reader& r, const QString& v) { return keep(r.options().printer, v); }},
    {u"--assets", [](Reader& r, const QString& v) { return r.options().assets.append(v), true; }},
    {u"--until", [](Reader& r, const QString& v) { return take_month(v, r.m_until); }},
}};

QString problem_of(const Restore& restore) {
    if (restore.folder.isEmpty())
        return u"FOLDER is missing"_s;
    return restore.root.isEmpty() && !restore.only_list ? u"ROOT is missing (or --list)"_s : QString();
}

Request read_restore(const QStringList& arguments) {
    Restore restore;
    QString problem;
    for (const QString& argument : arguments) {
        if (argument == u"--list")
            restore.only_list = true;
        else if (argument.startsWith(u"--"))
            problem = u"unknown option: "_s + argument;
        else if (restore.folder.isEmpty())
            restore.folder = argument;
        else if (restore.root.isEmpty())
            restore.root = argument;
        else
            problem = u"one ROOT only: "_s + argument;
    }
    return {{}, restore, {}, {}, problem.isEmpty() ? problem_of(restore) : problem};
}

QString problem_of(const Move& move) {
    if (move.root.isEmpty())
        return u"ROOT is missing"_s;
    if (move.to_files && move.partitions > 0)
        return u"--partitions needs --to-server"_s;
    return move.to_files == !move.server.isEmpty() ? u"either --to-server CONNINFO or --to-files"_s : QString();
}

Request read_move(QStringList arguments) {
    Move move;
    QString problem;
    while (!arguments.isEmpty() && problem.isEmpty()) {
        const QString argument = arguments.takeFirst();
        if (argument == u"--to-files")
            move.to_files = true;
        else if (argument == u"--to-server" && !arguments.isEmpty())
            move.server = arguments.takeFirst();
        else if (argument == u"--partitions" && !arguments.isEmpty())
            problem = take_partitions(arguments.takeFirst(), move.partitions) ? QString()
                                                                              : u"--partitions needs another value"_s;
        else if (argument.startsWith(u"--") || !move.root.isEmpty())
            problem = (argument.startsWith(u"--") ? u"can't be used: "_s : u"one ROOT only: "_s) + argument;
        else
            move.root = argument;
    }
    return {{}, {}, move, {}, problem.isEmpty() ? problem_of(move) : problem};
}

Request read_show(const QStringList& arguments) {
    const bool usable = arguments.size() == 1 && !arguments[0].startsWith(u"--");
    return {{}, {}, {}, arguments.value(0), usable ? QString() : u"show takes one ROOT"_s};
}

constexpr QStringView usage_text = uR"(rovena-install ROOT [option...]
rovena-install show ROOT
rovena-install restore FOLDER --list
rovena-install restore FOLDER ROOT
rovena-install move ROOT --to-server CONNINFO [--partitions N]
rovena-install move ROOT --to-files

Makes "ROOT/Program Files/meridan/qn" with the databases, folders, artwork, help and programs of the attendance system.
The rows of a database that exists are left alone; artwork, help and programs are brought up to date. An option that is
given is written into the settings also where the tree is there already; what isn't given stays as it is.

  --use-class N           what this PC is: 0 the main PC (as a new tree is), 1 or 2 another PC
  --server-name HOST      the main PC's name in the network, where the turn service runs; a setting of the shared data,
                          which on a main PC is the machine's own name unless it is given
  --info-server HOST      where the information page fetches news from; without it none is fetched
  --server-root PATH      the shared data lies there; none is made here
  --data-server CONNINFO  new databases of the shared data are made on that PostgreSQL server, or are taken as they are
                          where another PC made them; in libpq's words and without a password ("service=rovena")
  --partitions N          there the tables of employees' days are made in N partitions (2 to 256), parted by employee;
                          tables that are there stay as they are
  --server-backup WHERE   "elsewhere" where that server is backed up by other means: the question on leaving says so;
                          "here" takes it back
  --share-user NAME       account for that share; its password is asked for on the terminal
  --share-password-file FILE
                          takes the password from the first line of the file
  --share-password TEXT   the password itself, which everybody on this machine can read meanwhile
  --printer NAME          the printer to print on
  --assets DIR            where artwork and help lie (botan, icon, splash.bmp, help); may be given several times
  --sample [EMPLOYEES [MONTHS]]
                          adds a made-up company (20 employees, 3 months) to a new tree
  --until YYYYMM          its last month with attendance (202611)

show tells the settings that the options stand for.

restore goes back to a backup, which is a folder of one weekday ("comdata/data/bk/3"). It reads all of it, tells its
time, employees, months and rows, and puts its databases into the tree of ROOT. The present ones stay beside them under
a name with the time. Refused while the program is open on that data.

  --list                  only tells what the folder holds and whether it is in order

move takes the company of ROOT from files to a PostgreSQL server, or back. Every table is proved to be the same before
anything changes hands; what was moved stays beside as it was. Refused while a program is open on that data or saved
rows wait. A move that was broken off is ended or undone by running it again.

  --to-server CONNINFO    to that server, in libpq's words as above; with --partitions as above
  --to-files              into files of the tree
)";

} // namespace

Request read_arguments(const QStringList& arguments) {
    if (arguments.value(0) == u"restore")
        return read_restore(arguments.sliced(1));
    if (arguments.value(0) == u"move")
        return read_move(arguments.sliced(1));
    return arguments.value(0) == u"show" ? read_show(arguments.sliced(1)) : Reader(arguments).read();
}

base::Settings settings_of(const Options& options) {
    base::Settings settings;
    settings.install_drive = platform::drive_at(options.root);
    settings.server_root = settings.local_root = platform::install_root(settings.install_drive);
    return settings;
}

QString usage() {
    return usage_text.toString();
}

} // namespace install
