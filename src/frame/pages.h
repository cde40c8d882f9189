#pragma once

// The pages of the main frame, seen from below: a form opens and closes a page by its name and knows no widget.

namespace frame {

enum class Page {
    ent_rovena,
    ent_torikomi,
    ent_jyougen,
    ent_itiran,
    rov_00,
    rov_01,
    mst_00,
    mst_syain,
    mst_kinsyu,
    mst_kinjikan,
    mst_kintype,
    mst_kihon,
    mst_kyuka,
    info,
    errform,
};

class Pages {
public:
    virtual ~Pages() = default;

    /// Whether this program has the page. One that it hasn't can't be shown.
    virtual bool has(Page page) const = 0;
    /// Opens the page, or brings it to the front if it is open. Does nothing for a page that isn't there.
    virtual void show(Page page) = 0;
    /// Closes the page without asking; what it held is gone. Does nothing if it isn't open.
    virtual void close(Page page) = 0;
    virtual bool is_open(Page page) const = 0;

    /// Whether all pages may be closed: where one can't keep what was typed, the person has been asked.
    virtual bool may_close() { return true; }

    /// Closes the window of the main frame, as its close box does.
    virtual void unload_frame() = 0;
};

} // namespace frame
