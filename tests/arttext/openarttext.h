// SPDX-License-Identifier: MIT
// openarttext.h -- an art text object with its fields open, which counts what it tells the host's base.
#ifndef OPENARTTEXT_H
#define OPENARTTEXT_H

#include "arttext/arttexthelper.h"
#include "arttext/vxarttext.h"
#include "tests/support/recordinghost.h"
#include "tests/support/testfont.h"

#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>

/// In the font of squares 12 points at 96 dpi are 16 px: letters advance by 8, Han by 16. The ink of "a" is
/// 6 by 6, one pixel to the right of its start and on the baseline; that of Han 14 by 14.
class OpenArtObject : public CVxArtText
{
public:
    using CVxArtText::m_actionState;
    using CVxArtText::m_activeHandle;
    using CVxArtText::m_artText;
    using CVxArtText::m_attributeIds;
    using CVxArtText::m_bgTransparent;
    using CVxArtText::m_bgType;
    using CVxArtText::m_changeCommand;
    using CVxArtText::m_charPaths;
    using CVxArtText::m_clientRect;
    using CVxArtText::m_clientShape;
    using CVxArtText::m_colorBg;
    using CVxArtText::m_colorFill;
    using CVxArtText::m_colorPen;
    using CVxArtText::m_colorShadow;
    using CVxArtText::m_created;
    using CVxArtText::m_defaultWord;
    using CVxArtText::m_doPlay;
    using CVxArtText::m_editedText;
    using CVxArtText::m_editing;
    using CVxArtText::m_editPos;
    using CVxArtText::m_editSize;
    using CVxArtText::m_font;
    using CVxArtText::m_fontBold;
    using CVxArtText::m_fontFamily;
    using CVxArtText::m_fontItalic;
    using CVxArtText::m_fontSize;
    using CVxArtText::m_fontSomehow;
    using CVxArtText::m_handleFlag;
    using CVxArtText::m_handlePressed;
    using CVxArtText::m_isShadow;
    using CVxArtText::m_letterSpacing;
    using CVxArtText::m_paintedRect;
    using CVxArtText::m_pathRect;
    using CVxArtText::m_pathsMutex;
    using CVxArtText::m_pathsVertical;
    using CVxArtText::m_playing;
    using CVxArtText::m_playStep;
    using CVxArtText::m_rowSpacing;
    using CVxArtText::m_saveParams;
    using CVxArtText::m_scaledPaths;
    using CVxArtText::m_shadowAbsOffsetX;
    using CVxArtText::m_shadowAbsOffsetY;
    using CVxArtText::m_shadowOffsetX;
    using CVxArtText::m_shadowOffsetY;
    using CVxArtText::m_shape;
    using CVxArtText::m_textAlignment;
    using CVxArtText::m_textEdit;
    using CVxArtText::m_textWord;
    using CVxArtText::m_timerDelay;
    using CVxArtText::m_transparent;
    using CVxArtText::m_undoEnabled;

    explicit OpenArtObject(IVxPage *page = nullptr, bool finished = true)
        : CVxArtText(1, finished, nullptr, page)
    {
        m_fontFamily = loadBoxTestFont();
        m_fontSize = 12;
    }

    /// An engine without guide lines, and a style that draws none: outlines stay as the font has them.
    void stayFlat()
    {
        delete m_artText;
        m_artText = new CArtText;
        m_shape = 99;
    }

    /// Shows \a text in a client rectangle of \a size with its corner at the scene's (0, 0).
    void show(const QString &text, const QSizeF &size)
    {
        setPlainText(text);
        setSize(size, false, false);
        updates = 0;
    }

    void update() override
    {
        ++updates;
        CVxArtText::update();
    }
    void clearLayerEffectCache(int reason) override
    {
        cacheReasons.append(reason);
        CVxArtText::clearLayerEffectCache(reason);
    }
    void updateAfterObjRectChanged(QGraphicsItem *item, bool notify) override
    {
        ++rectChanges;
        CVxArtText::updateAfterObjRectChanged(item, notify);
    }

    int updates = 0;
    int rectChanges = 0;
    QVector<int> cacheReasons;
};

/// An object that lies alone in the host's scene and is selected: ready for an edit.
inline OpenArtObject *selectedArt(RecordingHost &host, const QString &text = QString(),
                                  const QSizeF &size = QSizeF(200, 100))
{
    auto *const object = new OpenArtObject(&host);
    object->show(text, size);
    object->setPos(QPointF(10, 20), false);
    host.scene().addItem(object);
    host.selectedObjects = {object};
    object->setSelected(true);
    host.clearEvents();
    return object;
}

/// A white picture with what OnQPainterDraw() paints.
inline QImage contentOf(CVxArtText &object, const QSize &size = QSize(120, 120))
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    object.OnQPainterDraw(&painter);
    return image;
}

inline CPageBgProp fillOf(const QColor &color, bool enabled = true)
{
    CPageBgProp fill(nullptr);
    fill.setFillEnable(enabled);
    fill.setColor(color);
    return fill;
}

#endif
