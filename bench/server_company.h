#pragma once

// Made-up companies whose data lies on the server at hand (scripts/with-server). The server fills them itself.

#include "base/settings.h"
#include "bench/bare_server.h"
#include "bench/companies.h"

#include <QTemporaryDir>

namespace bench {

struct ServerCompany {
    /// Employees 1 to the last, each with work type 1 and the months up to last_month, of 31 days in three categories.
    /// Its facts are parted into so many partitions.
    ServerCompany(int employees, int months, int partitions = 0);

    BareServer bare() const;   ///< its names are those of `rovdata`
    QString posted_in() const; ///< the schema of the exchange file

    QTemporaryDir folder;
    base::Settings settings;
};

/// Made on first use and kept until the program ends.
const ServerCompany& server_company(int employees, int months);

/// Prepare and run, on rovdata's names, what saving and applying a month says to a server.
void prepare_posting(BareServer& server, const QString& schema); ///< "post" a row, all "posted", "taken"
void prepare_applying(BareServer& server);
void apply_one(BareServer& server, const QList<QByteArray>& row); ///< as it was posted
void prepare_inserts(BareServer& server);
void insert_many(BareServer& server); ///< the rows of posted_rows.h

} // namespace bench
