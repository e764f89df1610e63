// SPDX-License-Identifier: MIT
// busysign.h -- tells the user of work that takes long.
#ifndef PAGEHOST_BUSYSIGN_H
#define PAGEHOST_BUSYSIGN_H

#include "app/pagehost/longwork.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QString>

#include <atomic>
#include <memory>

class QProgressDialog;
class QWidget;

/// From when on work is long, in milliseconds.
struct BusyTimes {
    int sign = 500;      ///< the pointer says that the program is busy
    int progress = 2000; ///< a dialog tells how far it is, with a button that gives it up
};

/// A piece of work in a window, from its making to its end. While it goes on the window paints itself
/// and takes no keys and no pointer. GUI thread only, but for isWanted().
class BusySign : public LongWork
{
    Q_DECLARE_TR_FUNCTIONS(BusySign)

public:
    /// \param what is being done, a few words
    BusySign(QWidget *window, const QString &what, const BusyTimes &times = BusyTimes());
    ~BusySign() override;
    BusySign(const BusySign &) = delete;
    BusySign &operator=(const BusySign &) = delete;

    /// True while any work goes on: timers and closing windows have to wait for its end.
    static bool isAnywhere();

    bool step(int done, int total) override;
    bool isWanted() const override { return !m_isCancelled; }
    void aside(const std::function<void()> &part) override;

private:
    void tell(int done, int total);
    void showSign();
    void showProgress();

    QWidget *m_window;
    QString m_what;
    BusyTimes m_times;
    QElapsedTimer m_clock;
    qint64 m_lastTold = 0; // ms
    bool m_showsSign = false;
    std::unique_ptr<QProgressDialog> m_dialog;
    std::atomic<bool> m_isCancelled{false};
};

#endif
