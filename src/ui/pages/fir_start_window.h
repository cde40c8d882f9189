#pragma once

// The window of the first start: shown instead of the main frame, it asks for the hours of a normal day, the first day
// of the company's month and the printer. The picture of the day follows what is typed.

#include "setup/fir_start.h"
#include "ui/parts/acting.h"
#include "ui/parts/field_box.h"

#include <QWidget>
#include <array>

class QLabel;
class QLayout;

namespace ui {

class DayLine;
class MomentNote;
class PictureButton;
class PrinterBox;

class fir_start_window : public Acting<QWidget> {
    Q_OBJECT
public:
    /// `program_folder` is the folder that the program runs from. Throws platform::FileError if a picture isn't there.
    fir_start_window(frame::Session& session, const QString& program_folder);

    const setup::fir_start& form() const { return m_form; }
    FieldBox* time(setup::TimePlace place) const { return m_time[int(place.box)][size_t(place.band)]; }
    FieldBox* first_day() const { return m_first_day; }
    PrinterBox* prconb() const { return m_prconb; }
    PictureButton* botan() const { return m_botan; }

private:
    QWidget* make_band();
    QWidget* make_times();
    QWidget* make_first_day();
    QWidget* make_printer();
    QLayout* make_foot();
    FieldBox* make_time(setup::TimePlace place, QWidget* parent);
    void refresh() override;
    void show_notice();

    frame::Session& m_session;
    setup::fir_start m_form;
    std::array<std::array<FieldBox*, setup::seeded_band_count>, setup::time_box_count> m_time{};
    FieldBox* m_first_day;
    PrinterBox* m_prconb;
    PictureButton* m_botan;
    DayLine* m_day;
    QLabel* m_said; ///< what a box made of what was typed, until the next key
    MomentNote* m_note;
};

} // namespace ui
