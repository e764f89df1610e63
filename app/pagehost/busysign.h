// SPDX-License-Identifier: MIT
// busysign.h -- tells the user of work that takes long.
#ifndef PAGEHOST_BUSYSIGN_H
#define PAGEHOST_BUSYSIGN_H

#include "app/page/longwork.h"

#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <memory>

class QProgressDialog;
class QPushButton;
class QWidget;

/// A piece of work in a window, from its making to its end. While it goes on the window paints itself
/// and takes no keys and no pointer. GUI thread only, but for isWanted().
class BusySign : public LongWork
{
    Q_DECLARE_TR_FUNCTIONS(BusySign)

public:
    static constexpr int signAfter = 500; ///< ms; then the pointer says that the program is busy
    /// ms; then a dialog tells how far the work is, with a button that gives it up
    static constexpr int progressAfter = 2000;

    /// \param what is being done, a few words
    BusySign(QWidget *window, const QString &what);
    ~BusySign() override;
    BusySign(const BusySign &) = delete;
    BusySign &operator=(const BusySign &) = delete;

    /// True while any work goes on: timers and closing windows have to wait for its end.
    static bool isAnywhere();
    /// Milliseconds since a moment that does not change.
    using Clock = qint64 (*)();
    /// The clock of all work that begins from now on; null for that of the machine.
    static void setClock(Clock clock);

    bool step(int done, int total) override;
    bool isWanted() const override { return !m_isCancelled; }
    void aside(const std::function<void()> &part) override;
    void beginLastPart() override;

private:
    bool isTimeToTell() const;
    void tell(int done, int total);
    void showSign();
    void showProgress();
    void giveUp();

    QWidget *m_window;
    QString m_what;
    Clock m_clock;
    qint64 m_start;        // ms
    qint64 m_lastTold = 0; // ms since the start
    bool m_showsSign = false;
    bool m_isLastPart = false;
    std::unique_ptr<QProgressDialog> m_dialog;
    QPushButton *m_cancel = nullptr; // of the dialog
    std::atomic<bool> m_isCancelled{false};
};

#endif
