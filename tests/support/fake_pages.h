#pragma once

#include "frame/mainform.h"

#include <set>
#include <vector>

namespace support {

using frame::Page;

/// Pages that remember what was done to them.
class FakePages : public frame::Pages {
public:
    bool has(Page page) const override { return !absent.contains(page); }
    void show(Page page) override {
        if (has(page))
            open.insert(page);
    }
    void close(Page page) override {
        closed.push_back(page);
        open.erase(page);
    }
    bool is_open(Page page) const override { return open.contains(page); }
    void unload_frame() override { ++unloads; }

    std::set<Page> open, absent;
    std::vector<Page> closed;
    int unloads = 0;
};

} // namespace support
