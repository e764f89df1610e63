// SPDX-License-Identifier: MIT
// openword.h -- a rich text object with its fields open, which writes down what it tells the host's base.
#ifndef OPENWORD_H
#define OPENWORD_H

#include "layout/textproperties.h"
#include "layout/wordmanager.h"
#include "tests/support/recordinghost.h"
#include "tests/support/testfont.h"
#include "wordprocess/cwordprocess.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QTextBlock>

/// In the font of squares 12 points at 96 dpi are 16 px: ascent 12, descent 4, Latin 8 wide, Han 16 wide.
class OpenWord : public CWordProcess
{
public:
    using CWordProcess::m_actionState;
    using CWordProcess::m_artText;
    using CWordProcess::m_autoWordWrap;
    using CWordProcess::m_baseSize;
    using CWordProcess::m_boundsMargins;
    using CWordProcess::m_clientRect;
    using CWordProcess::m_clientShape;
    using CWordProcess::m_created;
    using CWordProcess::m_cursor;
    using CWordProcess::m_cursorAtLineEnd;
    using CWordProcess::m_cursorColor;
    using CWordProcess::m_cursorEndScenePos;
    using CWordProcess::m_cursorLine;
    using CWordProcess::m_cursorTimerId;
    using CWordProcess::m_cursorVisible;
    using CWordProcess::m_defaultFollow;
    using CWordProcess::m_defaultWord;
    using CWordProcess::m_document;
    using CWordProcess::m_documentDpi;
    using CWordProcess::m_dragMovesObject;
    using CWordProcess::m_dragPos;
    using CWordProcess::m_drawDelegate;
    using CWordProcess::m_editing;
    using CWordProcess::m_editStartData;
    using CWordProcess::m_editStartText;
    using CWordProcess::m_flip;
    using CWordProcess::m_fontImage;
    using CWordProcess::m_fontImageClient;
    using CWordProcess::m_fontImageDropped;
    using CWordProcess::m_fontImagePos;
    using CWordProcess::m_fontImageRotation;
    using CWordProcess::m_fontImageScaleX;
    using CWordProcess::m_fontImageScaleY;
    using CWordProcess::m_fontImageSize;
    using CWordProcess::m_fontReplaceData;
    using CWordProcess::m_hasFocus;
    using CWordProcess::m_legacyLines;
    using CWordProcess::m_legacyTextSize;
    using CWordProcess::m_mirror;
    using CWordProcess::m_missingFontHint;
    using CWordProcess::m_missingFonts;
    using CWordProcess::m_morphPaths;
    using CWordProcess::m_morphRect;
    using CWordProcess::m_mouseSelecting;
    using CWordProcess::m_newVersion;
    using CWordProcess::m_otherParams;
    using CWordProcess::m_pathBrushes;
    using CWordProcess::m_pathsArePlaceholder;
    using CWordProcess::m_pathsMutex;
    using CWordProcess::m_preeditString;
    using CWordProcess::m_pressPos;
    using CWordProcess::m_replacedFonts;
    using CWordProcess::m_saveParams;
    using CWordProcess::m_scaleX;
    using CWordProcess::m_scaleY;
    using CWordProcess::m_selAnchor;
    using CWordProcess::m_selEnd;
    using CWordProcess::m_selStart;
    using CWordProcess::m_showFontImage;
    using CWordProcess::m_textInteractionFlags;
    using CWordProcess::m_textOffset;
    using CWordProcess::m_textOrientation;
    using CWordProcess::m_textPaths;
    using CWordProcess::m_textPathsRect;
    using CWordProcess::m_transformScaleX;
    using CWordProcess::m_transformScaleY;
    using CWordProcess::m_warpBounds;
    using CWordProcess::m_warpHandlers;
    using CWordProcess::m_warpHorizontalValue;
    using CWordProcess::m_warpMax;
    using CWordProcess::m_warpMin;
    using CWordProcess::m_warpOrientation;
    using CWordProcess::m_warpStyle;
    using CWordProcess::m_warpValue;
    using CWordProcess::m_warpVerticalValue;
    using CWordProcess::m_wordManager;
    using CWordProcess::m_wordWrap;

    /// Finished and empty; 96 dpi unless the page's document says otherwise.
    explicit OpenWord(IVxPage *page = nullptr)
        : CWordProcess(1, true, nullptr, page)
    {
    }

    static QTextCharFormat format(qreal points = 12)
    {
        QTextCharFormat result;
        result.setFontFamily(loadBoxTestFont());
        result.setFontPointSize(points);
        result.setForeground(Qt::black);
        return result;
    }

    /// Appends \a text and brings layout, paths and bounds up to date.
    void add(const QString &text, const QTextCharFormat &charFormat = format())
    {
        m_cursor->movePosition(QTextCursor::End);
        m_cursor->insertText(text, charFormat);
        updateBoundingRectImpl(true);
    }

    void select(int start, int end)
    {
        m_selStart = start;
        m_selEnd = end;
    }

    void forgetCalls()
    {
        changes.clear();
        cacheReasons.clear();
    }

    void notifyObjPropertyChanged(int code, const QString &detail) override
    {
        changes.append(code);
        details.append(detail);
        CWordProcess::notifyObjPropertyChanged(code, detail);
    }

    void clearLayerEffectCache(int reason) override
    {
        cacheReasons.append(reason);
        CBaseObject::clearLayerEffectCache(reason);
    }

    QVector<int> changes;      ///< codes of notifyObjPropertyChanged()
    QStringList details;       ///< their details
    QVector<int> cacheReasons; ///< reasons of clearLayerEffectCache()
};

/// A white picture with what OnQPainterDraw() paints, moved by \a origin.
inline QImage contentOf(CWordProcess &object, const QSize &size = QSize(200, 100),
                        const QPointF &origin = QPointF())
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(origin);
    object.OnQPainterDraw(&painter);
    return image;
}

/// A white picture with what paintHandlersInScene() paints.
inline QImage handlersOf(CWordProcess &object, const QSize &size = QSize(200, 100))
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    object.paintHandlersInScene(&object, &painter);
    return image;
}

/// The smallest rectangle around all pixels that are not white.
inline QRect inkOf(const QImage &image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0xffffffff)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

inline QJsonObject jsonOf(const QString &documentString)
{
    return QJsonDocument::fromJson(documentString.toUtf8()).object();
}

/// The "content" words of every stored block.
inline QList<QStringList> contentsOf(const QString &documentString)
{
    QList<QStringList> result;
    const QJsonArray blocks = jsonOf(documentString).value(QLatin1String("fragment")).toArray();
    for (const QJsonValue &runs : blocks) {
        QStringList words;
        const QJsonArray entries = runs.toArray();
        for (const QJsonValue &entry : entries)
            words.append(entry.toObject().value(QLatin1String("content")).toString());
        result.append(words);
    }
    return result;
}

/// The kinds of all "text_operation" events so far.
inline QVector<int> operationsOf(const RecordingHost &host)
{
    QVector<int> kinds;
    for (const RecordingHost::Event &event : host.eventsWithKey(QStringLiteral("text_operation")))
        kinds.append(event.values.value(QStringLiteral("sub_operator")).toInt());
    return kinds;
}

inline const CObjAction::ACT_Def sizeHandleIds[] = {
    CObjAction::ACT_TopLeft,    CObjAction::ACT_BottomRight,  CObjAction::ACT_TopCentre,
    CObjAction::ACT_TopRight,   CObjAction::ACT_Right,        CObjAction::ACT_Left,
    CObjAction::ACT_BottomLeft, CObjAction::ACT_BottomCentre,
};

/// True when all eight size handles are disabled, or enabled, as \a disabled says.
inline bool sizeHandlesAre(const CVXRootObject &object, bool disabled)
{
    for (CObjAction::ACT_Def handle : sizeHandleIds) {
        if (object.isHandleDisabled(handle) != disabled)
            return false;
    }
    return true;
}

#endif
