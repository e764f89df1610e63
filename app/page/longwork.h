// SPDX-License-Identifier: MIT
// longwork.h -- work that may take long, seen by the one who does it.
#ifndef APP_LONGWORK_H
#define APP_LONGWORK_H

#include <functional>

/// What a piece of work asks while it goes on. Work that is not wanted any more leaves everything as it
/// was.
class LongWork
{
public:
    virtual ~LongWork() = default;
    /// Between two steps on the GUI thread. False when the work is not wanted any more.
    virtual bool step(int done, int total) = 0;
    /// For any thread.
    virtual bool isWanted() const = 0;
    /// Does \a part, which touches nothing that the GUI thread knows, and returns when it is done.
    virtual void aside(const std::function<void()> &part) = 0;
    /// What begins now cannot be given up any more.
    virtual void beginLastPart() = 0;
};

/// Work that nobody watches: it is done at once.
class PlainWork : public LongWork
{
public:
    bool step(int /*done*/, int /*total*/) override { return true; }
    bool isWanted() const override { return true; }
    void aside(const std::function<void()> &part) override { part(); }
    void beginLastPart() override {}
};

/// For work that nobody asked to watch.
inline LongWork *plainWork()
{
    static PlainWork work;
    return &work;
}

#endif
