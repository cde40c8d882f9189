#pragma once

// The small window that a person sees while posted rows are applied. It shows what is done and takes nothing: it can't
// be closed, and goes by itself.

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

class ProgressWindow : public QWidget {
public:
    ProgressWindow();

    /// Shows the count and lets the interface paint.
    void show_rows(qint64 rows);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QLabel m_text;
    QProgressBar m_bar;
};
