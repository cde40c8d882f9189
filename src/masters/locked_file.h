#pragma once

// LockedFile: a database open for writing, its write lock held. What was written stands with transaction.commit();
// without it nothing does.

#include "store/database.h"

namespace masters {

struct LockedFile {
    store::Database database;
    store::Transaction transaction;

    explicit LockedFile(store::Database opened) : database(std::move(opened)), transaction(database) {}
};

} // namespace masters
