// SPDX-License-Identifier: MIT
#include "app/pagehost/busysign.h"

#include <QApplication>
#include <QProgressDialog>

#include <chrono>
#include <future>

namespace {

constexpr int tellEvery = 40; // ms between two looks at the clock of the user
int signCount = 0;

} // namespace

BusySign::BusySign(QWidget *window, const QString &what, const BusyTimes &times)
    : m_window(window)
    , m_what(what)
    , m_times(times)
{
    ++signCount;
    m_clock.start();
}

BusySign::~BusySign()
{
    m_dialog.reset();
    if (m_showsSign)
        QApplication::restoreOverrideCursor();
    --signCount;
}

bool BusySign::isAnywhere()
{
    return signCount > 0;
}

bool BusySign::step(int done, int total)
{
    if (m_clock.elapsed() >= m_lastTold + tellEvery || m_times.sign == 0)
        tell(done, total);
    return isWanted();
}

/// Short work is waited for in peace; only what takes longer lets the window paint itself meanwhile.
void BusySign::aside(const std::function<void()> &part)
{
    const std::future<void> done = std::async(std::launch::async, part);
    while (done.wait_for(std::chrono::milliseconds(tellEvery)) != std::future_status::ready)
        tell(0, 0);
}

/// \param total 0 for work whose end is not known
void BusySign::tell(int done, int total)
{
    m_lastTold = m_clock.elapsed();
    if (m_lastTold < m_times.sign)
        return;
    showSign();
    if (m_lastTold >= m_times.progress)
        showProgress();
    if (m_dialog && isWanted()) {
        m_dialog->setMaximum(total);
        m_dialog->setValue(total > 0 ? qMin(done, total - 1) : 0); // the last value would close it
    }
    // The dialog shuts out the windows behind it.
    QApplication::processEvents(m_dialog ? QEventLoop::AllEvents
                                         : QEventLoop::ExcludeUserInputEvents);
}

void BusySign::showSign()
{
    if (m_showsSign)
        return;
    m_showsSign = true;
    QApplication::setOverrideCursor(Qt::BusyCursor);
}

void BusySign::showProgress()
{
    if (m_dialog)
        return;
    m_dialog = std::make_unique<QProgressDialog>(m_what, tr("Cancel"), 0, 0, m_window);
    m_dialog->setObjectName(QStringLiteral("progress"));
    m_dialog->setWindowTitle(QApplication::applicationName());
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setMinimumDuration(0);
    m_dialog->setAutoReset(false);
    m_dialog->setAutoClose(false);
    QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(), [this] {
        m_isCancelled = true;
        m_dialog->setLabelText(tr("Cancelling..."));
    });
    m_dialog->show();
}
