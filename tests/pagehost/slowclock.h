// SPDX-License-Identifier: MIT
// slowclock.h -- work that takes long by its clock alone, and users who lose patience with it.
#ifndef SLOWCLOCK_H
#define SLOWCLOCK_H

#include "app/pagehost/busysign.h"

#include <QApplication>
#include <QProgressDialog>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

/// The clock of all work while it lives. It stands still, but for what each look at it takes.
class SlowClock
{
public:
    /// \param step milliseconds that a look takes
    explicit SlowClock(qint64 step)
    {
        s_now = 0;
        s_step = step;
        BusySign::setClock([] { return s_now += s_step; });
    }
    ~SlowClock() { BusySign::setClock(nullptr); }
    SlowClock(const SlowClock &) = delete;
    SlowClock &operator=(const SlowClock &) = delete;

    void setTime(qint64 milliseconds) { s_now = milliseconds; }

private:
    static inline qint64 s_now = 0;
    static inline qint64 s_step = 0;
};

/// Work that is given up after some steps, be they steps of it or parts beside the window.
class ImpatientWork : public LongWork
{
public:
    explicit ImpatientWork(int steps)
        : m_left(steps)
    {
    }
    bool step(int /*done*/, int /*total*/) override { return --m_left >= 0; }
    bool isWanted() const override { return m_left >= 0; }
    void aside(const std::function<void()> &part) override
    {
        --m_left;
        part();
    }
    void beginLastPart() override {}

private:
    int m_left;
};

/// Looks for the dialog that tells how far work is, and gives the work up when told to.
class ProgressWatch : public QObject
{
public:
    enum class Manner { Looks, Cancels };

    explicit ProgressWatch(Manner manner)
    {
        m_timer.start(0);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this, manner] {
            auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            m_words = dialog->labelText();
            m_timer.stop();
            if (manner == Manner::Cancels)
                QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        });
    }
    /// What the dialog said that was there; empty without one.
    QString words() const { return m_words; }

private:
    QTimer m_timer;
    QString m_words;
};

#endif
