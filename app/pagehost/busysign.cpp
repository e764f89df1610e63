// SPDX-License-Identifier: MIT
#include "app/pagehost/busysign.h"

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>

#include <chrono>
#include <future>

namespace {

constexpr int tellEvery = 40; // ms between two looks at what the user does

qint64 machineTime()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

BusySign::Clock clockOfNewSigns = machineTime;
int signCount = 0;

} // namespace

BusySign::BusySign(QWidget *window, const QString &what)
    : m_window(window)
    , m_what(what)
    , m_clock(clockOfNewSigns)
    , m_start(m_clock())
{
    ++signCount;
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

void BusySign::setClock(Clock clock)
{
    clockOfNewSigns = clock ? clock : machineTime;
}

bool BusySign::step(int done, int total)
{
    if (isTimeToTell())
        tell(done, total);
    return isWanted();
}

/// Short work is waited for in peace; only what takes longer lets the window paint itself meanwhile.
void BusySign::aside(const std::function<void()> &part)
{
    step(0, 0);
    const std::future<void> done = std::async(std::launch::async, part);
    while (done.wait_for(std::chrono::milliseconds(tellEvery)) != std::future_status::ready)
        tell(0, 0);
}

void BusySign::beginLastPart()
{
    m_isLastPart = true;
    if (m_cancel)
        m_cancel->setEnabled(false);
}

bool BusySign::isTimeToTell() const
{
    return m_clock() - m_start >= m_lastTold + tellEvery;
}

/// \param total 0 for work whose end is not known
void BusySign::tell(int done, int total)
{
    m_lastTold = m_clock() - m_start;
    if (m_lastTold < signAfter)
        return;
    showSign();
    if (m_lastTold >= progressAfter)
        showProgress();
    if (m_dialog) {
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

/// Stands from then on until the work has ended, also when it is given up: nothing else shuts out the
/// windows behind it.
void BusySign::showProgress()
{
    if (m_dialog) {
        m_dialog->setVisible(true); // it can be closed like any window
        return;
    }
    m_dialog = std::make_unique<QProgressDialog>(m_what, QString(), 0, 0, m_window);
    m_dialog->setObjectName(QStringLiteral("progress"));
    m_dialog->setWindowTitle(QApplication::applicationName());
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setMinimumDuration(0);
    m_dialog->setAutoReset(false);
    m_dialog->setAutoClose(false);
    m_cancel = new QPushButton(tr("Cancel"), m_dialog.get());
    m_dialog->setCancelButton(m_cancel);
    m_cancel->setEnabled(!m_isLastPart);
    // It hides itself on Cancel by a connection that only goes by its name.
    QObject::disconnect(m_dialog.get(), SIGNAL(canceled()), m_dialog.get(), SLOT(cancel()));
    QObject::connect(m_dialog.get(), &QProgressDialog::canceled, m_dialog.get(),
                     [this] { giveUp(); });
    m_dialog->show();
}

void BusySign::giveUp()
{
    if (m_isLastPart)
        return;
    m_isCancelled = true;
    m_cancel->setEnabled(false);
    m_dialog->setLabelText(tr("Cancelling..."));
}
