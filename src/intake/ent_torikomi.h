#pragma once

// ent_torikomi, "出勤取込": the form of the time recorder import. The person opens a file, says once which column is
// what, looks at what each line would do, and accepts. It runs without a display; a page shows the state, passes the
// acts on and refreshes after each.
//
// For the page: `busy` is true while the interface may be given time inside open_file(), read_again() or accept(): take
// no input, don't destroy the form. The work stands in the frame's status line, where it can be cancelled.

#include "frame/work_line.h"
#include "intake/accept.h"

namespace intake {

class ent_torikomi {
public:
    static constexpr QStringView caption = u"出勤取込";

    /// Both outlive the form.
    ent_torikomi(frame::Session& session, frame::WorkLine& work) : m_session(session), m_work(work) {}

    QString path;      ///< of the file; empty before one is opened
    RecorderFile file; ///< as it was read
    Profile profile;   ///< in hand; it has a name once it is kept, or comes from the kept ones
    QStringList names; ///< of the kept profiles
    Preview preview;   ///< of the file by the profile
    Acceptance taken;  ///< what became of its days; empty before they are accepted
    QSet<int> chosen;  ///< the days to be accepted, by their index
    QString msglab;    ///< how things stand
    bool busy = false;
    bool close_wanted = false;

    void Form_Load(); ///< the profile that was used last is in hand

    /// Asks for a file and reads it. A first file without a profile gets the one that its headings tell.
    void open_file();
    /// The file and the tables as they are now.
    void read_again();

    void choose_profile(const QString& name);
    void keep_profile(const QString& name); ///< under this name; an empty one keeps nothing
    /// Whether the profile in hand isn't kept as it is.
    bool profile_changed() const { return m_kept != profile; }

    std::optional<Role> role_of(int column) const;     ///< columns from 1
    void assign(int column, std::optional<Role> role); ///< another column loses the role
    void set_heading_lines(int lines);
    void set_words(const QString& in_word, const QString& out_word);

    /// New days are chosen from the first; different ones are chosen here, one or all. Others can't be.
    bool may_choose(int day) const;
    void choose(int day, bool accept);
    void choose_different(bool accept);

    bool can_accept() const { return !busy && !chosen.isEmpty() && taken.days.isEmpty(); }
    void accept(Into into);

    void botan_Click(int element); ///< 0 leaves the screen, 1 posts

private:
    void read_file();
    Preview seen();
    void look();

    frame::Session& m_session;
    frame::WorkLine& m_work;
    Profile m_kept; ///< the profile in hand as it is kept
};

} // namespace intake
