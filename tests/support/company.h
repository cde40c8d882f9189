#pragma once

// A company of the tests: a tree of new databases, a scripted desktop, and the session that forms are given.

#include "frame/session.h"
#include "store/test_tree.h"
#include "support/fake_host.h"
#include "support/printed.h"

namespace support {

inline constexpr quint16 nobody_listens = 1;

struct Company {
    TestTree tree;
    FakeHost host;
    store::SettingTables tables{tree.settings};
    frame::TurnLink link{tree.settings, host, {}, nobody_listens};
    frame::Session session{tree.settings, host, tables, link};

    store::Database rovdata() const {
        return store::Database::open(store::rovdata_path(tree.settings), store::Kind::Rovdata);
    }
    store::Database comsys() const {
        return store::Database::open(store::comsys_path(tree.settings), store::Kind::Comsys);
    }
    store::Database allsystem() const {
        return store::Database::open(store::allsystem_path(tree.settings), store::Kind::Allsystem);
    }
    void exec(std::string_view sql) const { rovdata().exec(sql); }
};

} // namespace support
