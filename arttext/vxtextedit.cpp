// SPDX-License-Identifier: MIT
#include "arttext/vxtextedit.h"

#include "arttext/cursorformats.h"
#include "arttext/ivxtextedit.h"
#include "arttext/wholenumbers.h"
#include "host/framework/defaultfont.h"

#include <QKeyEvent>
#include <QTimer>

#include <cmath>

namespace {

const QString editorStyleSheet = QStringLiteral(
    " QWidget { background-color: rgb(232, 232, 232);color:rgb(255,0,0);}");

/// Values of CVxTextEdit::m_mark.
enum Mark : quint16 {
    NoMark = 0,
    SubscriptMark = 1,
    SuperscriptMark = 256,
};

} // namespace

CVxTextEdit::CVxTextEdit(QWidget *parent)
    : QTextEdit(parent)
{
    setStyleSheet(editorStyleSheet);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QTextEdit::currentCharFormatChanged, this,
            &CVxTextEdit::currentCharFormatChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &CVxTextEdit::cursorPositionChanged);
    takeDefaultFont();
    setAttribute(Qt::WA_TranslucentBackground, true);
    setFrameShape(QFrame::NoFrame);
}

CVxTextEdit::~CVxTextEdit()
{
    hideSysKeyboard();
    hideHandWrite();
    delete m_toolbar;
    if (m_textItem)
        m_textItem->TextEditHasBeenDestroy();
    if (m_timer)
        m_timer->stop();
    delete m_timer;
}

void CVxTextEdit::takeDefaultFont()
{
    const QFont font = hostDefaultFont();
    setFont(font);
    setCurrentFont(font);
    QTextCharFormat format;
    format.setFont(font);
    setCurrentCharFormat(format);
    document()->setDefaultFont(font);
}

// The edit

void CVxTextEdit::BeginEdit(IVxTextEdit *textItem)
{
    m_textItem = textItem;
    if (!m_textItem || !GetFramework())
        return;
    if (m_enableHtml)
        setHtml(m_textItem->getTextHtml());
    else
        setPlainText(m_textItem->getPlainText());
    document()->adjustSize();
    updateBoundingRect();
    show();
    ResumeTimer();
    takeDefaultFont();
    moveCursor(QTextCursor::Start);
}

void CVxTextEdit::EndEdit()
{
    PauseTimer();
    hideSysKeyboard();
    hideHandWrite();
    setVisible(false);
    if (m_textItem)
        m_textItem->EndEdit();
}

void CVxTextEdit::ResetTexItem()
{
    m_textItem = nullptr;
}

void CVxTextEdit::updateBoundingRect()
{
    if (!m_textItem || !GetFramework())
        return;
    QRect rect = nearest(m_textItem->getTextPosition());
    if (!toPlainText().isEmpty())
        rect.setBottom(nearest(rect.top() + document()->size().height()));
    setGeometry(rect);
}

/// The object has the text at once, without a step of its own for each key.
void CVxTextEdit::handOverText()
{
    if (!m_textItem || !GetFramework())
        return;
    if (m_enableHtml)
        m_textItem->setTextHtml(toHtml());
    else
        m_textItem->setPlainText(toPlainText());
}

void CVxTextEdit::UpdateParent(QWidget *parent)
{
    setParent(parent);
}

void CVxTextEdit::enableHtml(bool enable)
{
    m_enableHtml = enable;
}

void CVxTextEdit::PauseTimer()
{
    if (m_timer)
        m_timer->stop();
}

void CVxTextEdit::ResumeTimer()
{
    if (m_timer)
        m_timer->start();
}

QRectF CVxTextEdit::InflateRect(const QRectF &rect, int by)
{
    const qreal distance = by;
    return rect.adjusted(-distance, -distance, distance, distance);
}

void CVxTextEdit::setVisible(bool visible)
{
    if (!visible) {
        hideSysKeyboard();
        hideHandWrite();
        PauseTimer();
    }
    QTextEdit::setVisible(visible);
}

// Formats

void CVxTextEdit::mergeFormatOnWordOrSelection(const QTextCharFormat &format)
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        cursor.mergeCharFormat(format);
    mergeCurrentCharFormat(format);
    handOverText();
    updateBoundingRect();
}

void CVxTextEdit::onTextBold()
{
    m_bold = !m_bold;
    QTextCharFormat format;
    format.setFontWeight(m_bold ? QFont::Bold : QFont::Normal);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextUnderline()
{
    m_underline = !m_underline;
    QTextCharFormat format;
    format.setFontUnderline(m_underline);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextItalic()
{
    m_italic = !m_italic;
    QTextCharFormat format;
    format.setFontItalic(m_italic);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextCross()
{
    m_cross = !m_cross;
    QTextCharFormat format;
    format.setFontStrikeOut(m_cross);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextFamily(const QString &f)
{
    QTextCharFormat format;
    format.setFontFamily(f);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextSize(const QString &p)
{
    const float size = p.toFloat();
    if (!std::isfinite(size) || !(size > 0.0f))
        return;
    QTextCharFormat format;
    format.setFontPointSize(qreal(size));
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextColor(const QColor &color)
{
    QTextCharFormat format;
    format.setForeground(color);
    mergeFormatOnWordOrSelection(format);
}

void CVxTextEdit::onTextMark(int nMark)
{
    m_mark = nMark == 1 ? SuperscriptMark : nMark == 2 ? SubscriptMark : NoMark;
    mergeFormatOnWordOrSelection(CursorFormats::markFormat(nMark));
}

void CVxTextEdit::onTextStyle(int styleIndex)
{
    QTextCursor cursor = textCursor();
    CursorFormats::setListStyle(cursor, styleIndex);
}

void CVxTextEdit::onTextAlign(Qt::Alignment align)
{
    CursorFormats::alignDocument(textCursor(), align);
}

void CVxTextEdit::onClearText()
{
    setText(QStringLiteral(""));
}

// Nothing yet

void CVxTextEdit::UpdateToolbarPos() {}
void CVxTextEdit::ToolbarHasBeenDeleted() {}
void CVxTextEdit::hideSysKeyboard() {}
void CVxTextEdit::hideHandWrite() {}
void CVxTextEdit::onSysKeyboard() {}
void CVxTextEdit::onHandWrite() {}
void CVxTextEdit::currentCharFormatChanged(const QTextCharFormat & /*format*/) {}
void CVxTextEdit::cursorPositionChanged() {}
void CVxTextEdit::focusMe() {}

// Events

void CVxTextEdit::contextMenuEvent(QContextMenuEvent * /*event*/) {}

void CVxTextEdit::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    m_focusLost = false;
}

void CVxTextEdit::focusOutEvent(QFocusEvent * /*event*/)
{
    qDebug("CVxTextEdit::focusOutEvent");
}

void CVxTextEdit::keyPressEvent(QKeyEvent *event)
{
    if (!m_textItem || !GetFramework()) {
        event->ignore();
        return;
    }
    QTextEdit::keyPressEvent(event);
    handOverText();
    updateBoundingRect();
}

void CVxTextEdit::resizeEvent(QResizeEvent *event)
{
    static_cast<void>(GetFramework()); // deliberate: asked for, and not needed yet
    QTextEdit::resizeEvent(event);
}
