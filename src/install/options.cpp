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

bool take_month(const QString& text, int& month) {
    int value = 0;
    if (!take_number(text, 190001, 209912, value) || value % 100 < 1 || value % 100 > 12)
        return false;
    month = value;
    return true;
}

/// The arguments on their way into the options.
class Reader {
public:
    explicit Reader(const QStringList& arguments) : m_rest(arguments) {}

    Request read() {
        while (!m_rest.isEmpty() && m_request.problem.isEmpty())
            take(m_rest.takeFirst());
        if (m_request.problem.isEmpty() && options().root.isEmpty())
            m_request.problem = u"ROOT is missing"_s;
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
    static const std::array<Option, 9> known_options;

    Options& options() { return m_request.options; }

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

bool keep(QString& place, const QString& value) {
    place = value;
    return true;
}

constexpr std::array<Reader::Option, 9> Reader::known_options{{
    {u"--use-class", [](Reader& r, const QString& v) { return take_number(v, 0, 2, r.options().use_class); }},
    {u"--server-name", [](Reader& r, const QString& v) { return keep(r.options().server_name, v); }},
    {u"--info-server", [](Reader& r, const QString& v) { return keep(r.options().info_server, v); }},
    {u"--server-root", [](Reader& r, const QString& v) { return keep(r.options().server_root, v); }},
    {u"--share-user", [](Reader& r, const QString& v) { return keep(r.options().share_user, v); }},
    {u"--share-password", [](Reader& r, const QString& v) { return keep(r.options().share_password, v); }},
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
    return {{}, restore, problem.isEmpty() ? problem_of(restore) : problem};
}

} // namespace

Request read_arguments(const QStringList& arguments) {
    return arguments.value(0) == u"restore" ? read_restore(arguments.sliced(1)) : Reader(arguments).read();
}

base::Settings settings_of(const Options& options) {
    base::Settings settings;
    settings.install_drive = platform::drive_at(options.root);
    settings.server_root = settings.local_root = settings.install_drive + platform::install_tail();
    return settings;
}

QString usage() {
    return uR"(rovena-install ROOT [option...]
rovena-install restore FOLDER --list
rovena-install restore FOLDER ROOT

Makes "ROOT/Program Files/meridan/qn" with the databases, folders, artwork, help and programs of the attendance system.
A database that exists is left alone; artwork, help and programs are brought up to date.

  --use-class N           what this PC is: 0 the main PC (the default), 1 or 2 another PC
  --server-name HOST      the main PC's name in the network, where the turn service runs
  --info-server HOST      where the information page fetches news from; without it none is fetched
  --server-root PATH      the shared data lies there; none is made here
  --share-user NAME       account for that share
  --share-password TEXT   its password
  --printer NAME          the printer to print on
  --assets DIR            where artwork and help lie (botan, icon, splash.bmp, help); may be given several times
  --sample [EMPLOYEES [MONTHS]]
                          adds a made-up company (20 employees, 3 months)
  --until YYYYMM          its last month with attendance (202611)

restore goes back to a backup, which is a folder of one weekday ("comdata/data/bk/3"). It reads all of it, tells its
time, employees, months and rows, and puts its databases into the tree of ROOT. The present ones stay beside them under
a name with the time. Refused while the program is open on that data.

  --list                  only tells what the folder holds and whether it is in order
)"_s;
}

} // namespace install
