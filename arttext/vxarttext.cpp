// SPDX-License-Identifier: MIT
// vxarttext.cpp -- CVxArtText: life, place and size, the overlay editor's way in.
// Changes: m_clientRect with m_clientShape, m_textEdit, the play.
#include "arttext/vxarttext.h"

#include "arttext/arttexthelper.h"
#include "arttext/vxtextedit.h"
#include "arttext/wholenumbers.h"
#include "host/framework/defaultfont.h"
#include "host/framework/idocumenthost.h"

#include <QFontMetrics>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace {
constexpr double smallestSide = 6.0;
constexpr double zoomTolerance = 0.01; // about 1 that counts as 1

constexpr int hostAttributes[] = {2001, 2002, 2003, 2004, 2050, 2051, 2100};
constexpr int ownAttributes[] = {5001, 5003, 5002, 5004, 5005, 5006, 5007}; // in this order
constexpr int operations[] = {0, 1, 2, 10, 11, 20, 21, 24, 30, 31, 32, 34, 36, 200};

/// Not-a-number stays what it is: the host refuses it.
double atLeastSmallest(double side)
{
    return side < smallestSide ? smallestSide : side;
}
} // namespace

CVxArtText::CVxArtText(int id, bool finished, QGraphicsItem *parent, IVxPage *page)
    : CBaseObject(id, finished, parent, page)
{
    setTextInteractionFlags(Qt::NoTextInteraction);
    setObjectName(QStringLiteral("wb art text"));
    for (int attribute : hostAttributes)
        m_attributeIds.removeAll(attribute);
    for (int attribute : ownAttributes)
        m_attributeIds.append(attribute);
    LimitClientRect();
    CVxArtText::setSize(QSizeF(truncated(m_clientRect.width()), truncated(m_clientRect.height())),
                        false, false);

    m_artText = new CArtText;
    m_font = hostDefaultFont();
    document()->setDefaultFont(m_font);
    setFont(m_font);
    const QRect usualText = QFontMetrics(m_font).boundingRect(QStringLiteral("ABCDEFGHIJK"));
    document()->setTextWidth(usualText.width() + 1);
    updatePosition(this,
                   QRectF(getPos(), QSizeF(usualText.width() + 1, document()->size().height())));
    m_textAlignment = 0x84;
    m_textWord = QLatin1String("");
    LoadFontPath();
}

CVxArtText::~CVxArtText()
{
    delete m_artText;
    m_artText = nullptr;
    setTextEdit(nullptr);
}

void CVxArtText::Release()
{
    if (m_textEdit) // steps may keep the object alive, but nobody edits it any more
        m_textEdit->setVisible(false);
    CBaseObject::Release();
}

bool CVxArtText::canDo(OperationType operation)
{
    const int *const end = std::end(operations);
    if (std::find(std::begin(operations), end, int(operation)) != end)
        return true;
    if (operation == OP_HasText && !m_textWord.isEmpty())
        return true;
    return CBaseObject::canDo(operation);
}

void CVxArtText::StartPlay()
{
    if (m_playing)
        return;
    m_playing = true;
    m_playStep = 0;
}

// Place and size

void CVxArtText::setClientRect(const QRectF &rect)
{
    m_clientRect = rect;
    delete m_clientShape;
    m_clientShape = new QPainterPath;
    m_clientShape->addRect(rect);
}

void CVxArtText::setSize(const QSizeF &size, bool undo, bool notify)
{
    CBaseObject::setSize(QSizeF(atLeastSmallest(size.width()), atLeastSmallest(size.height())),
                         undo, notify);
}

void CVxArtText::LimitClientRect()
{
    if (m_clientRect.width() < smallestSide || m_clientRect.height() < smallestSide)
        setClientRect(QRectF(m_clientRect.topLeft(), QSizeF(smallestSide, smallestSide)));
}

void CVxArtText::updatePosition(QGraphicsItem *item, QRectF rect)
{
    CBaseObject::setPos(rect.topLeft(), /*undo=*/false);
    setClientRect(QRectF(QPointF(0, 0), rect.size()));
    updateAfterObjRectChanged(item, /*notify=*/true);
}

void CVxArtText::updateBoundingRect()
{
    const int height = truncated(document()->size().height());
    if (height > m_clientRect.height())
        updatePosition(this, QRectF(getPos(), QSizeF(m_clientRect.width(), height)));
}

// The overlay editor's way in

void CVxArtText::setTextEdit(CVxTextEdit *editor)
{
    if (editor == m_textEdit)
        return;
    if (m_textEdit) {
        m_textEdit->ResetTexItem();
        delete m_textEdit;
    }
    m_textEdit = editor;
    if (!editor)
        return;
    // A parent window may delete an editor that knows of no object yet, and so tells none.
    connect(editor, &QObject::destroyed, this, [this, editor] {
        if (m_textEdit == editor)
            TextEditHasBeenDestroy();
    });
}

QGraphicsView *CVxArtText::view() const
{
    IDocumentHost *const host = getDocument();
    return host ? host->getView() : nullptr;
}

QRectF CVxArtText::getTextPosition()
{
    const QPoint corner = nearest(getPos());
    const QGraphicsView *const shown = view();
    double zoom = double(getCurZoomRate());
    if (std::abs(zoom - 1.0) <= zoomTolerance)
        zoom = 1.0;
    return QRectF(shown ? shown->mapFromScene(QPointF(corner)) : corner,
                  QSizeF(m_clientRect.width() * zoom, m_clientRect.height() * zoom));
}

QPoint CVxArtText::getViewPoint()
{
    const QGraphicsView *const shown = view();
    return scene() && shown ? nearest(shown->mapToScene(QPoint(0, 0))) : QPoint(0, 0);
}

QPoint CVxArtText::getViewGlobalPt(const QPoint &point)
{
    const QGraphicsView *const shown = view();
    return scene() && shown ? shown->mapToGlobal(point) : QPoint(0, 0);
}

QString CVxArtText::getPlainText()
{
    return m_textWord;
}

void CVxArtText::setPlainText(const QString &text)
{
    m_textWord = text;
    generatePath(m_fontSomehow);
    update();
}

QString CVxArtText::getTextHtml()
{
    return m_textWord;
}

void CVxArtText::setTextHtml(const QString & /*html*/) {}

QRectF CVxArtText::GetViewRect()
{
    return QRectF(0, 0, m_clientRect.width(), m_clientRect.height());
}

void CVxArtText::TextEditHasBeenDestroy()
{
    m_textEdit = nullptr;
}

IVxPage *CVxArtText::GetCurrentPage()
{
    return GetPage();
}

void CVxArtText::setText(const QString &text)
{
    setPlainText(text);
    const double height = boundingRect().height();
    if (height > m_clientRect.height())
        updatePosition(this, QRectF(getPos(), QSizeF(m_clientRect.width(), height)));
}

void CVxArtText::setTextAndRect(QString &text, QRectF rect, bool /*undo*/)
{
    m_editedText = text;
    setPlainText(text);
    updatePosition(this, rect);
}
