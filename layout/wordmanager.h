// SPDX-License-Identifier: MIT
#ifndef WORDMANAGER_H
#define WORDMANAGER_H

#include "layout/textlayout.h"

#include <mutex>

class CTextObjectBase;
class CWordProcess;

/// The only door to layout: holds the layout object that fits the word-wrap setting and serialises
/// every access to it. Each member takes a non-recursive mutex for its whole duration; a failure
/// of the mutex surfaces as std::system_error. Callers get copies, never references.
class CWordManager
{
public:
    /// \a object is read at every layout, must outlive this and is not owned.
    CWordManager(CWordProcess *object, bool wordWrap);
    ~CWordManager();

    CWordManager(const CWordManager &) = delete;
    CWordManager &operator=(const CWordManager &) = delete;

    /// Exchanges the layout object when the value changes. The new one starts empty: run layout()
    /// again.
    void setWordWrap(bool wordWrap);

    /// Lays the object's text out.
    void layout();

    /// Appends what is painted, parallel in both lists.
    void textPaths(QList<QPainterPath> &paths, QList<QBrush> &brushes);

    /// Caret at \a pos; \a forward: a position at a wrap point stands at the next line's start.
    QLineF cursorLine(int pos, bool forward);

    /// Moves the finished layout by (\a dx, \a dy); the box becomes (0, 0, width, height).
    void updatePosition(qreal dx, qreal dy, qreal width, qreal height);

    /// A copy of the last layout, to walk without the lock.
    TextLayout textLayout();

    /// Box of the text.
    QRectF textOriRect();

    /// Area that covers the outlines of the last two layouts.
    QRectF textPathRect();

private:
    CWordProcess *m_object;
    CTextObjectBase *m_textObject;
    bool m_wordWrap;
    std::mutex m_mutex;
};

#endif // WORDMANAGER_H
