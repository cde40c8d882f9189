#pragma once

// The page of the time recorder import: the file and its columns on top, what each line would do below, the buttons at
// the foot.

#include "intake/ent_torikomi.h"
#include "ui/parts/acting.h"
#include "ui/parts/picture_button.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;
class QTableView;

namespace ui {

class ColumnTable;
class PreviewModel;

class ent_torikomi_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. The session and the line of work outlive the page.
    ent_torikomi_page(frame::Session& session, frame::WorkLine& work, QWidget* parent = nullptr);

    const intake::ent_torikomi& form() const { return m_form; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* make_file_row();
    QWidget* make_profile_row();
    QWidget* make_filter_row();
    void make_preview();
    QPushButton* make_button(const QString& caption, std::function<void()> press);
    PictureButton* make_picture(const frame::Button& button, std::function<void()> press);
    void keep_profile();
    void take_words();
    void press(int element);

    void refresh() override;
    void show_profile();
    void show_states();

    frame::Session& m_session;
    intake::ent_torikomi m_form;
    QLabel* m_file = nullptr;
    QPushButton* m_read_again = nullptr;
    QComboBox* m_names = nullptr;
    QPushButton* m_keep = nullptr;
    QSpinBox* m_heading_lines = nullptr;
    QWidget* m_words = nullptr; ///< the two boxes of words, there where stamps have a direction
    QLineEdit* m_in_word = nullptr;
    QLineEdit* m_out_word = nullptr;
    ColumnTable* m_columns;
    QComboBox* m_states = nullptr;
    QCheckBox* m_replace = nullptr;
    PreviewModel* m_lines;
    QTableView* m_preview;
    PictureButton* m_post = nullptr;
    QPushButton* m_draft = nullptr;
    QLabel* m_msglab;
};

} // namespace ui
