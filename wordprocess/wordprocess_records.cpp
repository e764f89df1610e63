// SPDX-License-Identifier: MIT
// wordprocess_records.cpp -- CWordProcess: stream and JSON records.
// The state travels in m_saveParams, which the host writes and reads; both forms share one road and differ
// only in their tail. Reading changes the document, the box, the stretch and the picture.
#include "wordprocess/cwordprocess.h"

#include "host/framework/idocumenthost.h"
#include "host/qimageex/qimageex.h"
#include "layout/wordmanager.h"
#include "wordprocess/hostdefaults.h"
#include "wordprocess/htmldocument.h"
#include "wordprocess/numbers.h"

#include <QDataStream>
#include <QJsonObject>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QtMath>

namespace {
namespace Key {
const QLatin1String TextOrientation("TextOrientation");
const QLatin1String DefaultWord("text_defaultword");
const QLatin1String DefaultFollow("text_defaultfollow");
const QLatin1String WordWrap("text_wordwrap");
const QLatin1String DocumentData("document_data");
const QLatin1String DocumentDpi("document_dpi");
const QLatin1String NewVersion("new_version");
const QLatin1String TransformXx("transform_xx");
const QLatin1String TransformYy("transform_yy");
const QLatin1String TransformXy("transform_xy");
const QLatin1String TransformYx("transform_yx");
const QLatin1String TransformTx("transform_tx");
const QLatin1String TransformTy("transform_ty");
const QLatin1String BoxLeft("boxBounds_left");
const QLatin1String BoxTop("boxBounds_top");
const QLatin1String BoxRight("boxBounds_right");
const QLatin1String BoxBottom("boxBounds_bottom");
const QLatin1String BoundingLeft("boundingBox_left");
const QLatin1String BoundingTop("boundingBox_top");
const QLatin1String BoundingRight("boundingBox_right");
const QLatin1String BoundingBottom("boundingBox_bottom");
const QLatin1String ImageX("img_x");
const QLatin1String ImageY("img_y");
const QLatin1String FontImage("font_imgage"); // spelled so in every record
const QLatin1String HasImage("has_img");      // older records only
const QLatin1String JsonImage("JSON_TEXT_IMG_DATA");
const QLatin1String JsonDpi("TextDPI");
const QLatin1String JsonContent("TextContent");
} // namespace Key

constexpr double sameAngle = 1e-6; // degrees that an angle may lose on its way through a matrix

/// \a stretch without what it lost on its way through a matrix: a box that holds its text exactly would wrap
/// it anew for the last bit.
double withoutNoise(double stretch)
{
    return QString::number(stretch, 'g', 10).toDouble();
}

/// HTML tells left and right of the page, whatever way the text runs; alignments of ours are plain.
void makeAlignmentsPlain(QTextDocument &document)
{
    QTextCursor cursor(&document);
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setAlignment(format.alignment() & ~Qt::AlignAbsolute);
        cursor.setPosition(block.position());
        cursor.setBlockFormat(format);
    }
}

double real(const AttributeMap &params, QLatin1String key)
{
    return finiteReal(params.value(key));
}
} // namespace

bool CWordProcess::save(QDataStream &stream)
{
    fillSaveParams();
    CBaseObject::save(stream);
    stream << QString();
    return true;
}

bool CWordProcess::saveJson(QJsonObject &json)
{
    fillSaveParams();
    CBaseObject::saveJson(json);
    json.insert(Key::JsonDpi, truncated(screenDpiX()));
    json.insert(Key::JsonContent, QString());
    return true;
}

void CWordProcess::fillSaveParams()
{
    if (m_editing)
        endEdit(); // a record never holds an open edit
    m_saveParams[Key::TextOrientation] = m_textOrientation;
    m_saveParams[Key::DefaultWord] = m_defaultWord;
    m_saveParams[Key::DefaultFollow] = m_defaultFollow;
    m_saveParams[Key::WordWrap] = m_wordWrap;
    m_saveParams[Key::DocumentData] = serialize(false);
    m_saveParams[Key::DocumentDpi] = m_documentDpi;
    m_saveParams[Key::NewVersion] = m_newVersion;
    if (m_newVersion) {
        fillPlacementParams();
        fillBoundsParams();
        addWarpAttributes(m_saveParams);
    }
    storeImageInParams();
    m_saveParams.remove(Key::HasImage);
}

void CWordProcess::fillPlacementParams()
{
    const QTransform placement = getTextTransform();
    const QPointF origin = m_showFontImage ? textOriginBehindImage()
                                           : QPointF(placement.dx(), placement.dy());
    m_saveParams[Key::TransformXx] = placement.m11();
    m_saveParams[Key::TransformYy] = placement.m22();
    m_saveParams[Key::TransformXy] = placement.m12();
    m_saveParams[Key::TransformYx] = placement.m21();
    m_saveParams[Key::TransformTx] = origin.x();
    m_saveParams[Key::TransformTy] = origin.y();
}

/// Where the text lies that the picture stands for, scene: it has gone with the picture from where both were
/// read, and is not moved once more by each record.
QPointF CWordProcess::textOriginBehindImage() const
{
    const QPointF inImage = m_fontImageClient.topLeft() - m_fontImagePos;
    return mapToScene(inImage.x() * m_fontImageScaleX, inImage.y() * m_fontImageScaleY);
}

void CWordProcess::fillBoundsParams()
{
    const QRectF &client = m_clientRect;
    if (!m_wordWrap) {
        const double right = (client.x() + client.width()) / divisor(m_scaleX);
        const double bottom = (client.y() + client.height()) / divisor(m_scaleY);
        m_saveParams[Key::BoxLeft] = m_saveParams[Key::BoundingLeft] = client.x();
        m_saveParams[Key::BoxTop] = m_saveParams[Key::BoundingTop] = client.y();
        m_saveParams[Key::BoxRight] = m_saveParams[Key::BoundingRight] = right;
        m_saveParams[Key::BoxBottom] = m_saveParams[Key::BoundingBottom] = bottom;
        return;
    }
    const BoundsMargins &m = m_boundsMargins;
    const double kx = divisor(m_transformScaleX);
    const double ky = divisor(m_transformScaleY);
    const double right = m_textPathsRect.x() + m_textPathsRect.width();
    const double bottom = m_textPathsRect.y() + m_textPathsRect.height();
    m_saveParams[Key::BoxLeft] = 0;
    m_saveParams[Key::BoxTop] = 0;
    m_saveParams[Key::BoxRight] = (right + m.left - m.right) / kx;
    m_saveParams[Key::BoxBottom] = (bottom + m.top - m.bottom) / ky;
    m_saveParams[Key::BoundingLeft] = m.left / kx;
    m_saveParams[Key::BoundingTop] = m.top / ky;
    m_saveParams[Key::BoundingRight] = (right + m.left) / kx;
    m_saveParams[Key::BoundingBottom] = (bottom + m.top) / ky;
}

/// Keeps the object's look as pixels, for machines without its fonts.
void CWordProcess::storeImageInParams()
{
    IDocumentHost *document = getDocument();
    if (!document) // nobody to keep it
        return;
    QRectF area;
    const QImage image = getImageFromObject(area, false);
    if (image.isNull())
        return;
    m_saveParams[Key::ImageX] = area.x();
    m_saveParams[Key::ImageY] = area.y();
    QString name;
    QString second;
    document->storeImage(image, name, second, 0, 0, true);
    m_saveParams[Key::FontImage] = name;
}

bool CWordProcess::load(QDataStream &stream)
{
    CBaseObject::load(stream);
    QString olderText;
    stream >> olderText; // "" in every record but the oldest
    readSaveParams(olderText);
    readFontImage([&](IDocumentHost &document, QString &name) {
        document.readImageFromStream(stream, &m_fontImage, 0, name);
    });
    finishLoading();
    return true;
}

bool CWordProcess::loadJson(QJsonObject &json)
{
    CBaseObject::loadJson(json);
    readSaveParams(json.value(Key::JsonContent).toString());
    readFontImage([&](IDocumentHost &document, QString &name) {
        document.readImageFromJson(json, &m_fontImage, Key::JsonImage, 0, name);
    });
    finishLoading();
    return true;
}

void CWordProcess::readSaveParams(const QString &olderText)
{
    if (IDocumentHost *document = getDocument())
        m_documentDpi = acceptedDpi(document->getDpi(), m_documentDpi);
    if (m_saveParams.contains(Key::DefaultWord))
        m_defaultWord = m_saveParams.value(Key::DefaultWord).toString();
    if (m_saveParams.contains(Key::DefaultFollow))
        m_defaultFollow = m_saveParams.value(Key::DefaultFollow).toBool();
    if (m_saveParams.contains(Key::TextOrientation))
        m_textOrientation = toWhole(m_saveParams.value(Key::TextOrientation));
    if (m_saveParams.contains(Key::WordWrap)) {
        m_wordWrap = m_saveParams.value(Key::WordWrap).toBool();
        m_wordManager->setWordWrap(m_wordWrap);
    }
    if (m_saveParams.contains(Key::DocumentData))
        readDocumentData();
    else
        readHtml(olderText);
    m_wordManager->setWordWrap(m_wordWrap); // the document string may have set the flag

    m_newVersion = m_saveParams.value(Key::NewVersion).toBool();
    if (!m_newVersion)
        return;
    const QSizeF size = readBounds();
    readPlacement(size);
}

void CWordProcess::readHtml(const QString &html)
{
    HtmlDocument reader;
    reader.setHtml(html);
    makeAlignmentsPlain(reader);
    m_document->clear();
    QTextCursor(m_document).insertFragment(QTextDocumentFragment(&reader));
    deserialization(serialize(false), false); // the formats take on our own vocabulary
    m_autoWordWrap = false;
    px2pt(screenDpiX());
}

void CWordProcess::readDocumentData()
{
    deserialization(m_saveParams.value(Key::DocumentData).toString(), false);
    m_autoWordWrap = false; // deliberate: a growing box is never restored from a record
    if (!m_saveParams.contains(Key::DocumentDpi))
        return;
    const int storedDpi = toWhole(m_saveParams.value(Key::DocumentDpi));
    if (storedDpi != m_documentDpi)
        px2pt(storedDpi);
}

/// Restores the overhang of box text. \return the size around the paths, (-1, -1) when none is stored
QSizeF CWordProcess::readBounds()
{
    if (!m_saveParams.contains(Key::BoxLeft))
        return QSizeF(-1.0, -1.0);
    const double left = real(m_saveParams, Key::BoundingLeft);
    const double top = real(m_saveParams, Key::BoundingTop);
    const double right = real(m_saveParams, Key::BoundingRight);
    const double bottom = real(m_saveParams, Key::BoundingBottom);
    if (m_wordWrap) {
        m_boundsMargins.left = left;
        m_boundsMargins.top = top;
        m_boundsMargins.right = right - real(m_saveParams, Key::BoxRight);
        m_boundsMargins.bottom = bottom - real(m_saveParams, Key::BoxBottom);
    }
    return QSizeF(right - left, bottom - top);
}

void CWordProcess::readPlacement(const QSizeF &size)
{
    const double dx = real(m_saveParams, Key::TransformTx);
    const double dy = real(m_saveParams, Key::TransformTy);
    if (!m_saveParams.contains(Key::TransformXx)) {
        m_fontImageClient.setLeft(dx);
        m_fontImageClient.setTop(dy);
        m_textOffset = mapFromScene(m_fontImageClient.topLeft());
        m_textPathsRect.setSize(m_fontImageClient.size());
    } else {
        readPlacementMatrix();
        m_fontImageClient = QRectF(QPointF(dx, dy), stretched(size, m_scaleX, m_scaleY));
        m_textPathsRect.setSize(size); // at stretch 1: whoever reads it stretches it
    }
}

/// Takes rotation and stretch out of the stored matrix; flip and mirror are known already.
void CWordProcess::readPlacementMatrix()
{
    const double m11 = real(m_saveParams, Key::TransformXx);
    const double m12 = real(m_saveParams, Key::TransformXy);
    const double m21 = real(m_saveParams, Key::TransformYx);
    const double m22 = real(m_saveParams, Key::TransformYy);
    m_fontImageRotation = std::atan2(m12, m11) * 180.0 / M_PI;
    if (m_mirror)
        m_fontImageRotation = 180.0 - m_fontImageRotation;
    if (m_flip)
        m_fontImageRotation = -m_fontImageRotation;
    if (m_fontImageRotation == 0.0 && rotation() != 0.0)
        m_fontImageRotation = rotation();
    takeStretch(m11, m12, m21, m22);
}

/// Takes the stretch out of a matrix that turns by m_fontImageRotation. The cosine is rounded only to tell the
/// quarter turns: a rounded divisor would change a turned text a little each time that it is loaded.
void CWordProcess::takeStretch(double m11, double m12, double m21, double m22)
{
    const double cosine = std::cos(qDegreesToRadians(m_fontImageRotation));
    const bool quarterTurn = QString::number(cosine, 'f', 6).toDouble() == 0.0;
    m_scaleX = withoutNoise(std::abs(quarterTurn ? m12 : m11 / cosine));
    m_scaleY = withoutNoise(std::abs(quarterTurn ? m21 : m22 / cosine));
}

void CWordProcess::readFontImage(
    const std::function<void(IDocumentHost &, QString &)> &readOlderImage)
{
    const bool stored = m_saveParams.contains(Key::FontImage);
    if (!stored && !m_saveParams.contains(Key::HasImage))
        return;
    if (IDocumentHost *document = getDocument()) {
        QString name = m_saveParams.value(Key::FontImage).toString();
        if (!stored) {
            readOlderImage(*document, name);
        } else if (const QImageEx *image = document->imageByName(name)) {
            m_fontImage = image->toImage();
        }
        if (!m_fontImage.isNull()) {
            m_fontImagePos = QPointF(real(m_saveParams, Key::ImageX),
                                     real(m_saveParams, Key::ImageY));
            m_fontImageSize = m_fontImage.size();
        }
    }
    fontExists(m_saveParams.value(Key::DocumentData).toString()); // for the lists that it fills
}

void CWordProcess::finishLoading()
{
    m_created = true;
    updateAfterObjRectChanged(this, true);
    const QRectF box = m_clientRect;
    const QPointF centre = mapToScene(box.center());
    const double angle = rotation();
    if (m_fontImage.isNull())
        updateBoundingRectImpl(true);
    else
        showFontImage(m_saveParams.value(Key::DocumentData).toString());
    if (!m_showFontImage && !box.isEmpty()) {
        if (m_newVersion)
            standWhereSaved(centre, angle);
        else
            keepSavedBox(box.size(), centre, angle);
    }
    enableAllHandles();
}

/// Text of the older engine that has left its picture takes its own box again: no key tells it, and the picture
/// is as large as a turned box reaches.
void CWordProcess::keepSavedBox(const QSizeF &size, const QPointF &centre, double angle)
{
    if (m_fontImage.isNull() || !isPictureOf(centre))
        return;
    if (m_wordWrap) {
        updatePosition(this, QRectF(getPos(), size));
        updateBoundingRectImpl(true);
    }
    setRotation(angle);
    setCenterPos(centre, m_clientRect.size());
}

/// True when the picture shows the object that has its centre at \a centre, scene.
bool CWordProcess::isPictureOf(const QPointF &centre) const
{
    const QPointF apart = centre - QRectF(m_fontImagePos, m_fontImageSize).center();
    return std::abs(apart.x()) <= 1.0 && std::abs(apart.y()) <= 1.0;
}

/// Puts real text where its record had it, as often as it is loaded and saved again. A picture says so only to
/// the pixel, and leaves a turned box at its own corner; without one, line text would hang below its anchor, and
/// a warp would move once more from where it has moved the text.
/// \param centre  of the record's box, scene
void CWordProcess::standWhereSaved(const QPointF &centre, double angle)
{
    if (m_fontImage.isNull()) {
        const bool isAnchored = !m_wordWrap && m_saveParams.contains(Key::TransformXx);
        if (isAnchored || !m_morphPaths.isEmpty())
            setCenterPos(centre, m_clientRect.size());
        return;
    }
    if (std::abs(std::remainder(rotation() - angle, 360.0)) < sameAngle)
        setRotation(angle);
    const QPointF ofImage = QRectF(m_fontImagePos, m_fontImageSize).center();
    setCenterPos(isPictureOf(centre) ? centre : ofImage, m_clientRect.size());
}

/// Stands as the picture, and leaves it at once when all fonts are there.
void CWordProcess::showFontImage(const QString &documentString)
{
    rotateObj(-rotation(), false);
    updatePosition(this, QRectF(m_fontImagePos, m_fontImageSize));
    m_showFontImage = true;
    m_fontImageScaleX = 1.0;
    m_fontImageScaleY = 1.0;
    m_baseSize = m_fontImageSize;
    if (!m_newVersion || m_fontImageClient.width() < 0.0 || m_fontImageClient.height() < 0.0) {
        m_fontImageClient = QRectF(m_fontImagePos, m_fontImageSize);
        m_textPathsRect.setSize(m_fontImageSize);
    }
    if (!fontExists(documentString))
        return;
    const bool locked = isLocked();
    if (locked)
        setLocked(false, false, false);
    img2paths();
    if (locked)
        setLocked(true, false, false);
}
