// SPDX-License-Identifier: MIT
// fragmentwalk.h -- the one walk over the runs of a block that changes their formats on the way.
#ifndef FRAGMENTWALK_H
#define FRAGMENTWALK_H

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QVector>

/// Groups the changes of one command into one undo step of the document, and one notification.
class EditBlock
{
    Q_DISABLE_COPY(EditBlock)

public:
    enum Start { IsNew, JoinsLast };
    explicit EditBlock(QTextCursor &cursor, Start start = IsNew)
        : m_cursor(cursor)
    {
        if (start == JoinsLast)
            m_cursor.joinPreviousEditBlock();
        else
            m_cursor.beginEditBlock();
    }
    ~EditBlock() { m_cursor.endEditBlock(); }

private:
    QTextCursor &m_cursor;
};

namespace FragmentWalk {
struct Run {
    int start; ///< document position
    int end;   ///< behind the last character, above start
    bool isFirstOfBlock;
};

/// The runs of \a block as far as they lie in [\a start, \a end).
inline QVector<Run> runsOf(const QTextBlock &block, int start, int end)
{
    QVector<Run> runs;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const Run run{qMax(start, fragment.position()),
                      qMin(end, fragment.position() + fragment.length()), it == block.begin()};
        if (run.start < run.end)
            runs.append(run);
    }
    return runs;
}
} // namespace FragmentWalk

/// Puts \a cursor on each run of \a block in turn, as far as it lies in [\a start, \a end), and calls
/// \a change with whether that run is the first of the block.
///
/// A change of a format merges a run with its neighbours or splits it, so that no iterator outlives it.
/// The walk goes by positions, which a format does not move: each character is selected exactly once,
/// merged with what lies behind it or not, and the walk always ends, whatever \a change does to the cursor.
/// \a change must not insert or remove text. O(runs of the block) beside the changes.
template<typename Change>
void forEachRun(QTextCursor &cursor, const QTextBlock &block, int start, int end, Change change)
{
    const QVector<FragmentWalk::Run> runs = FragmentWalk::runsOf(block, start, end);
    for (const FragmentWalk::Run &run : runs) {
        cursor.setPosition(run.start);
        cursor.setPosition(run.end, QTextCursor::KeepAnchor);
        change(run.isFirstOfBlock);
    }
}

/// The same for the whole of \a block.
template<typename Change>
void forEachRun(QTextCursor &cursor, const QTextBlock &block, Change change)
{
    forEachRun(cursor, block, block.position(), block.position() + block.length(), change);
}

#endif
