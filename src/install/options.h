#pragma once

// The command line of rovena-install.

#include "base/settings.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace install {

/// The size of the made-up company: its attendance covers the months up to and including `until` (yyyymm).
struct Sample {
    int employees = 20;
    int months = 3;
    int until = 202611;
};

/// What isn't given is empty, and stays as it is in a tree that is there.
struct Options {
    QString root;                 ///< the folder that stands for the drive
    std::optional<int> use_class; ///< 0 the main PC, as a new tree is without it; 1 or 2 another PC
    QString server_name;          ///< host of the turn service
    QString info_server;          ///< host of the news
    QString server_root;          ///< root of the shared data if it lies elsewhere; the shared part isn't made then
    QString data_server;          ///< the PostgreSQL server for the shared data, as libpq names it
    int partitions = 0;           ///< into which its tables of facts are parted; 0 as it was
    QString server_backup;        ///< "1" if that server is backed up elsewhere, "0" if it isn't
    QString share_user;           ///< account for that share
    QString share_password;       ///< and its password
    QString share_password_file;  ///< or the file that holds it
    QString printer;              ///< the first print slot's printer
    QStringList assets;           ///< folders with `botan`, `icon`, `splash.bmp` or `help`
    std::optional<Sample> sample;
};

/// Going back to a backup.
struct Restore {
    QString folder;         ///< the backup of one weekday
    QString root;           ///< the folder that stands for the drive; empty to look only
    bool only_list = false; ///< nothing is put in place
};

/// Taking the company to a server, or back into files.
struct Move {
    QString root;
    QString server;        ///< as libpq names it; empty for files
    bool to_files = false; ///< said so
    int partitions = 0;    ///< on the server; 0 for none
};

/// What the arguments (without the program's name) ask for; `problem` says what is wrong with them and is empty if they
/// are in order.
struct Request {
    Options options;
    std::optional<Restore> restore; ///< asked for instead of the options
    std::optional<Move> move;       ///< likewise
    std::optional<QString> show;    ///< likewise: the root whose settings are to be told
    QString problem;                ///< in English
};
Request read_arguments(const QStringList& arguments);

/// The run-time settings of a program in the tree that is made: its drive and both roots there, whatever the tree says
/// of its data. Nothing is looked up.
base::Settings settings_of(const Options& options);

QString usage();

} // namespace install
