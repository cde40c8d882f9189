#pragma once

// A company's four databases where the program looks for them, and rows saved into them one by one.

#include "base/literals.h"
#include "frame/settings.h"
#include "store/database.h"

#include <QTemporaryDir>
#include <array>

class BackupTree {
public:
    /// Makes the databases with rows of so many employees.
    explicit BackupTree(int employees = 100);

    /// What a program in a tree at this folder has as its settings.
    static frame::Settings settings_at(const QString& drive);

    struct Live {
        store::Kind kind;
        QString path;
        const char* save;  ///< adds a row with a number of its own
        const char* saved; ///< how many there are, and their sum
    };
    static std::array<Live, 4> live_files(const frame::Settings& settings);

    /// Saves the number into the file as a screen does; once more where another program was in the way.
    static void save(const Live& live, int number);
    static std::string rows(qint64 count, qint64 sum); ///< "2 rows, 3 in all"
    /// The same of a file; throws where the file isn't whole.
    static std::string saved(const Live& live, const QString& path);
    static std::string saved(const Live& live) { return saved(live, live.path); }

    QTemporaryDir folder;
    frame::Settings settings;
};
