// SPDX-License-Identifier: MIT
// A host may render a page on a thread of its own while the text is edited on the GUI thread.
#include "tests/support/testfont.h"
#include "wordprocess/cwordprocess.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

#include <atomic>
#include <thread>

namespace {
class OpenWord : public CWordProcess
{
public:
    OpenWord()
        : CWordProcess(1, true, nullptr, nullptr)
    {
    }
    using CWordProcess::m_cursor;
    using CWordProcess::m_pathBrushes;
    using CWordProcess::m_pathsMutex;
    using CWordProcess::m_textPaths;
};

/// Some glyphs of an exact font, one run.
QTextCharFormat boxFormat()
{
    QTextCharFormat format;
    format.setFontFamily(loadBoxTestFont());
    format.setFontPointSize(12);
    format.setForeground(QBrush(Qt::black));
    return format;
}
} // namespace

class TestPaintThread : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void paintsWholeListsWhileTheTextChanges();
};

void TestPaintThread::paintsWholeListsWhileTheTextChanges()
{
    OpenWord word;
    word.m_cursor->insertText(QStringLiteral("start"), boxFormat());
    word.updateBoundingRectImpl(true);

    std::atomic<bool> finished{false};
    std::atomic<int> painted{0};
    std::atomic<int> unequal{0};
    std::thread painting([&] {
        QImage image(200, 60, QImage::Format_ARGB32_Premultiplied);
        while (!finished) {
            image.fill(Qt::white);
            QPainter painter(&image);
            word.drawTextPaths(&painter);
            {
                const std::lock_guard<PathsMutex> guard(word.m_pathsMutex);
                if (word.m_textPaths.size() != word.m_pathBrushes.size())
                    ++unequal;
            }
            ++painted;
        }
    });
    for (int i = 0; i < 50; ++i) {
        if (i % 10 == 9)
            word.m_cursor->insertBlock();
        word.m_cursor->insertText(QStringLiteral("ab"), boxFormat());
        word.updateBoundingRectImpl(true);
    }
    while (painted < 20)
        std::this_thread::yield();
    finished = true;
    painting.join();
    QCOMPARE(unequal.load(), 0);
}

QTEST_MAIN(TestPaintThread)
#include "tst_paintthread.moc"
