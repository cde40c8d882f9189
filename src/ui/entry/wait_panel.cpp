#include "ui/entry/wait_panel.h"

#include "base/literals.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {
constexpr int usual_width = 460;
constexpr int lines = 3;
} // namespace

WaitPanel::WaitPanel(QWidget* parent) : QDialog(parent), m_words(new QLabel(this)) {
    setWindowTitle(u"登録の順番待ち"_s);
    setModal(true);
    setMinimumWidth(usual_width);
    m_words->setMinimumHeight(lines * m_words->fontMetrics().lineSpacing());
    m_words->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* give_up = new QPushButton(u"やめる"_s, this);
    give_up->setAutoDefault(false); // Enter that was meant for the save gives nothing up
    connect(give_up, &QPushButton::clicked, this, &QDialog::reject);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(give_up);
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_words);
    column->addLayout(foot);
}

bool WaitPanel::show_wait(const frame::TurnLink::Waiting& wait) {
    if (isHidden() && m_words->text().isEmpty())
        show();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(wait.waited).count();
    std::optional<frame::TurnStatus> status = wait.status;
    if (status)
        --status->waiting; // this PC
    m_words->setText(u"登録の順番を待っています（%1秒）\n%2"_s.arg(seconds).arg(status ? words(*status) : QString()));
    // The form waits without the person's hands on anything; here there is one button, and all else is shut out by it.
    QCoreApplication::processEvents();
    return !isHidden();
}

} // namespace ui
