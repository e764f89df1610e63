// SPDX-License-Identifier: MIT
// wordprocess_clipboard.cpp -- CWordProcess: copy, cut and paste in two forms at once, rich and plain.
// Changes: the document at the cursor, m_cursor, the selection; a new object also becomes a finished one.
#include "wordprocess/cwordprocess.h"

#include "layout/textproperties.h"
#include "wordprocess/fragmentwalk.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/htmldocument.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {
const QLatin1String richTextType("application/vixorama_text"); // a document string in UTF-8

/// Null without a graphical application, of which there is no clipboard.
QClipboard *systemClipboard()
{
    const auto *application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return application ? QGuiApplication::clipboard() : nullptr;
}

QString untilZeroByte(const QByteArray &bytes)
{
    const int zero = bytes.indexOf('\0');
    return QString::fromUtf8(zero < 0 ? bytes : bytes.left(zero));
}
} // namespace

QString CWordProcess::getSelectedText() const
{
    int start = 0;
    int end = 0;
    if (m_selEnd <= m_selStart || !selection(start, end))
        return QString();
    return toPlainText().mid(start, end - start);
}

bool CWordProcess::copy()
{
    int start = 0;
    int end = 0;
    if (m_selEnd <= m_selStart || !selection(start, end)) {
        qDebug("no text selection");
        return false;
    }
    QClipboard *clipboard = systemClipboard();
    if (!clipboard)
        return false;
    auto *data = new QMimeData;
    data->setData(richTextType, serialize(/*selectionOnly=*/true).toUtf8());
    data->setText(getSelectedText());
    clipboard->setMimeData(data, QClipboard::Clipboard); // which owns it now
    return true;
}

bool CWordProcess::cut()
{
    if (!copy()) // what is not on the clipboard is not lost
        return false;
    removeSelectedText();
    return true;
}

bool CWordProcess::paste(bool newObject, bool rich)
{
    bool isRich = false;
    const QString text = offeredText(rich, isRich);
    if (text.isEmpty())
        return false;
    endComposition();
    const bool replacesSelection = hasSelection();
    replaceByPasted(text, isRich, /*withDefaultLook=*/newObject && !isRich);
    if (replacesSelection)
        clearSelection();
    if (newObject)
        finishNewObject();
    notifyTextOperation(TextOperationAttributes, {});
    updateBoundingRectImpl(true);
    return true;
}

/// One step of the document's own undo: the removal goes with what takes its place. Nobody is told, since a
/// listener may undo at once, which has to find the step closed.
void CWordProcess::replaceByPasted(const QString &text, bool isRich, bool withDefaultLook)
{
    const EditBlock step(*m_cursor);
    if (hasSelection())
        putCursorOnSelection();
    else
        dropCursorSelection();
    m_cursor->removeSelectedText();
    if (isRich) {
        deserialization(text, /*insertAtCursor=*/true);
        return;
    }
    if (withDefaultLook)
        takeDefaultLook();
    m_cursor->insertText(text);
}

/// The best form that the clipboard offers; empty when it has nothing to paste. Our own type wins over
/// any other text; one that cannot be read counts as absent, so that nothing is removed for it.
/// \param isRich  receives whether the text is a document string
QString CWordProcess::offeredText(bool rich, bool &isRich) const
{
    isRich = false;
    const QClipboard *clipboard = systemClipboard();
    if (!clipboard)
        return QString();
    const QMimeData *data = clipboard->mimeData();
    if (data && data->hasFormat(richTextType)) {
        const QString own = untilZeroByte(data->data(richTextType));
        if (hasContent(own)) {
            isRich = rich;
            return rich ? own : data->text();
        }
    }
    const QString text = clipboard->text();
    return Qt::mightBeRichText(text) ? getPlainTextFromHtmlText(text) : text;
}

/// What a new object's plain text is written in.
void CWordProcess::takeDefaultLook()
{
    QTextBlockFormat blockFormat;
    blockFormat.setProperty(QTextFormat::BlockLeftMargin, 0.0);
    QTextCharFormat charFormat;
    charFormat.setFont(hostDefaultFont());
    charFormat.setForeground(QBrush(Qt::black, Qt::SolidPattern));
    charFormat.setProperty(TextProperty::RowSpacing, 0);
    m_cursor->setBlockFormat(blockFormat);
    m_cursor->setBlockCharFormat(charFormat);
    m_cursor->setCharFormat(charFormat);
}

QString CWordProcess::getPlainTextFromHtmlText(const QString &html) const
{
    HtmlDocument reader; // never opens what the text refers to
    reader.setHtml(html);
    return reader.toPlainText();
}
