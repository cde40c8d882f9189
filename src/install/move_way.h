#pragma once

// The two ways of a move; each knows what it makes, when the places have begun to change hands, and how what was broken
// off is ended or undone.

#include "install/move_plan.h"
#include "install/tree.h"
#include "store/held.h"

#include <memory>

namespace install {

class MoveWay {
public:
    MoveWay(base::Settings& settings, MovePlan plan, const Say& say)
        : m_settings(settings), m_plan(std::move(plan)), m_say(say) {}
    MoveWay(const MoveWay&) = delete;
    MoveWay& operator=(const MoveWay&) = delete;
    virtual ~MoveWay() = default;

    /// Whether places have begun to change hands: then there is only one way, to the end.
    virtual bool switched() = 0;
    /// Throws what keeps the goal from taking the company, before anything is made.
    virtual void look_at_goal() {}
    /// Makes a copy beside the place, and an empty one for a database that isn't there yet where the goal wants it.
    virtual void copy(store::Held& source, store::Kind kind) = 0;
    virtual void make_missing(const MovedDatabase&) {}
    /// Lets the places begin to change hands, with everything still held.
    virtual void switch_over(std::vector<store::Held>& held) = 0;
    virtual void finish() = 0;
    /// Takes away what was made; nothing has changed hands yet.
    virtual void undo() = 0;

protected:
    QString path_of(const MovedDatabase& database) const { return database.path(m_settings); }
    QString folder() const; ///< of all the shared data

    base::Settings& m_settings;
    const MovePlan m_plan;
    const Say& m_say;
};

std::unique_ptr<MoveWay> way_of(base::Settings& settings, const MovePlan& plan, const Say& say);

} // namespace install
