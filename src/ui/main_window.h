#pragma once

// The one top-level window: the band with the five top buttons and the two status texts, and below it the page in view.

#include "frame/mainform.h"
#include "ui/pages/page_area.h"

#include <QWidget>

class QLabel;

namespace ui {

class PictureButton;
class WorkBar;

class MainWindow : public QWidget {
    Q_OBJECT
public:
    /// `backup` is what the form does before the window closes; unset, nothing is backed up. The table outlives the
    /// window. Throws platform::FileError if a picture of the top buttons isn't there.
    explicit MainWindow(
        frame::Session session, std::span<const PageRow> table = page_table(), std::function<void()> backup = {});

    ~MainWindow() override;

    frame::mainform& form() { return m_form; }
    PageArea& pages() { return *m_pages; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* make_band(const QString& pictures);
    void refresh();
    void show_work();

    frame::Session m_session;
    PageArea* m_pages;
    frame::mainform m_form;
    QList<PictureButton*> m_midasi;
    WorkBar* m_work;
    QLabel* m_flab;
    QLabel* m_stalab;
};

} // namespace ui
