// SPDX-License-Identifier: MIT
// wordprocess_newtext.cpp -- CWordProcess: the properties that bring a whole text with them.
// Changes: the document; for a placed text also the form, the place, the stretch, the warp and the picture.
#include "wordprocess/cwordprocess.h"

#include "host/framework/iappframework.h"
#include "layout/wordmanager.h"
#include "wordprocess/numbers.h"
#include "wordprocess/streamreading.h"

#include <QtMath>

namespace {
const QLatin1String temporaryImage("temp_img_data"); // the picture that comes with a placed text

QString defaultInputWord()
{
    const QString fallback = QStringLiteral("Please input text");
    IAppFramework *framework = GetFramework();
    return framework
               ? framework->getLocalString(QStringLiteral("IDS_TEXT_DEFAULT_INPUTWORD"), fallback)
               : fallback;
}
} // namespace

/// A text with its place, in the order of the stream. Every real is finite once it is read.
struct CWordProcess::PlacedText {
    QByteArray document; ///< document string, UTF-8
    bool wrapped = false;
    int orientation = 0;
    QSizeF size;          ///< of the text with its overhang, scene
    QPointF pos;          ///< of the picture, scene
    QTransform placement; ///< from the text at stretch 1 to the scene
    int warpStyle = 0;
    int warpOrientation = 0;
    double warpHorizontal = 0; ///< percent, like the next two
    double warpVertical = 0;
    double warpValue = 0;
    BoundsMargins margins; ///< zero for line text, like the corner
    QPointF innerCorner;

    bool read(QDataStream &stream)
    {
        double width = 0, height = 0, x = 0, y = 0;
        double m11 = 0, m12 = 0, m21 = 0, m22 = 0, dx = 0, dy = 0;
        if (!readAll(stream, document, wrapped, orientation, width, height, x, y)
            || !readAll(stream, m11, m12, m21, m22, dx, dy)
            || !readAll(stream, warpStyle, warpOrientation)
            || !readAll(stream, warpHorizontal, warpVertical, warpValue))
            return false;
        size = QSizeF(finiteOrZero(width), finiteOrZero(height));
        pos = QPointF(finiteOrZero(x), finiteOrZero(y));
        placement = QTransform(finiteOrZero(m11), finiteOrZero(m12), finiteOrZero(m21),
                               finiteOrZero(m22), finiteOrZero(dx), finiteOrZero(dy));
        return !wrapped || readBoxes(stream);
    }

    bool readBoxes(QDataStream &stream)
    {
        BoundsMargins box;
        BoundsMargins inner;
        if (!readAll(stream, box.left, box.top, box.right, box.bottom)
            || !readAll(stream, inner.left, inner.top, inner.right, inner.bottom))
            return false;
        margins.left = finiteOrZero(box.left - inner.left);
        margins.top = finiteOrZero(box.top - inner.top);
        margins.right = finiteOrZero(box.right - inner.right);
        margins.bottom = finiteOrZero(box.bottom - inner.bottom);
        innerCorner = QPointF(finiteOrZero(inner.left), finiteOrZero(inner.top));
        return true;
    }
};

void CWordProcess::setFirstText(QDataStream &stream)
{
    QString text;
    if (!readAll(stream, text))
        text.clear(); // the object is finished whatever has arrived
    endComposition();
    dropCursorSelection();
    takeDefaultLook();
    m_cursor->insertText(Qt::mightBeRichText(text) ? getPlainTextFromHtmlText(text) : text);
    m_defaultWord = defaultInputWord();
    finishNewObject();
}

void CWordProcess::setPlacedText(QDataStream &stream)
{
    PlacedText text;
    if (!text.read(stream))
        return;
    endComposition();
    takePlacement(text);
    m_created = true;
    m_textOrientation = text.orientation;
    m_defaultWord = defaultInputWord();
    m_wordWrap = text.wrapped;
    m_wordManager->setWordWrap(m_wordWrap);
    const QString document = QString::fromUtf8(text.document);
    deserialization(document, /*insertAtCursor=*/false);
    m_wordManager->setWordWrap(m_wordWrap); // the document string may have set the flag
    fontExists(document);

    const QImage image = getTempValue(temporaryImage).value<QImage>();
    if (image.isNull()) { // the object keeps the picture that it has
        layOutPlacedText(text);
    } else {
        m_fontImage = image;
        m_fontImagePos = text.pos;
        m_fontImageSize = image.size();
        showFontImage(document);
    }
    setControlPointDisable(false);
    setHandlesDisable(CObjAction::ACT_Rotate, false);
    m_fontImageDropped = true;
}

void CWordProcess::takePlacement(const PlacedText &text)
{
    m_warpStyle = text.warpStyle;
    m_warpOrientation = text.warpOrientation;
    m_warpHorizontalValue = finiteOrZero(text.warpHorizontal) / 100.0;
    m_warpVerticalValue = finiteOrZero(text.warpVertical) / 100.0;
    m_warpValue = finiteOrZero(text.warpValue) / 100.0;
    if (text.wrapped)
        m_boundsMargins = text.margins;

    const QTransform &placement = text.placement;
    m_fontImageRotation = std::atan2(placement.m12(), placement.m11()) * 180.0 / M_PI;
    QTransform upright(placement);
    upright.rotate(-m_fontImageRotation);
    if (upright.m11() < 0)
        m_mirror = true;
    if (upright.m22() < 0)
        m_flip = true;
    takeStretch(placement.m11(), placement.m12(), placement.m21(), placement.m22());
    m_fontImageClient = QRectF(placement.map(text.innerCorner), text.size);
    if (text.wrapped) {
        const std::lock_guard<PathsMutex> guard(m_pathsMutex);
        m_textPathsRect.setSize(
            QSizeF(text.size.width() / divisor(m_scaleX), text.size.height() / divisor(m_scaleY)));
    }
}

/// Without a picture a box stands where the picture would, turned like it; line text has its anchor where the
/// matrix says.
void CWordProcess::layOutPlacedText(const PlacedText &text)
{
    m_showFontImage = false;
    rotateObj(-rotation(), false);
    setPos(text.pos, false);
    updateBoundingRectImpl(true);
    rotateObj(m_fontImageRotation, false);
    if (m_wordWrap)
        return;
    const QTransform actual = getTextTransform();
    const QPointF way(text.placement.dx() - actual.dx(), text.placement.dy() - actual.dy());
    setPos(getPos() + way, false);
}

/// Puts one run of the first character's format, in a paragraph of the first one's, in place of all text.
void CWordProcess::setReplacedText(QDataStream &stream)
{
    QString text;
    if (!readAll(stream, text))
        return;
    img2paths();
    const QString before = stateForUndo();
    m_cursor->setPosition(0);
    const QTextCharFormat charFormat = m_cursor->charFormat();
    const QTextBlockFormat blockFormat = m_cursor->blockFormat();
    m_document->clear();
    m_cursor->setBlockFormat(blockFormat);
    m_cursor->setBlockCharFormat(charFormat); // what an empty text keeps
    m_cursor->setCharFormat(charFormat);
    m_cursor->insertText(text);
    m_replacedFonts = m_missingFonts;
    pushUndoRedo(before, serialize(false));
}
