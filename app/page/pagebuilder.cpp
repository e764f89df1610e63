// SPDX-License-Identifier: MIT
#include "app/page/pagebuilder.h"

#include "app/page/document.h"
#include "app/page/page.h"
#include "app/page/pagetext.h"
#include "app/page/paragraphstyle.h"
#include "app/page/pluginloader.h"
#include "app/page/textobject.h"
#include "app/page/textrecord.h"
#include "host/framework/cvxrootobject.h"
#include "host/framework/iappframework.h"

namespace {

/// Attributes that a person need not write.
QJsonObject defaultRunAttributes()
{
    QString family;
    int size = 0;
    if (IAppFramework *framework = GetFramework())
        framework->getDefaultFont(family, size);
    return {{QStringLiteral("font_family"), family},
            {QStringLiteral("font_pointsize"), size},
            {QStringLiteral("pen_color"), QStringLiteral("#000000")}};
}

QJsonObject defaultParagraphAttributes(bool vertical)
{
    ParagraphStyle style;
    style.alignment = alignmentOf(QStringLiteral("left"));
    return paragraphAttributes(style, vertical);
}

QJsonObject united(QJsonObject attributes, const QJsonObject &more)
{
    for (auto it = more.constBegin(); it != more.constEnd(); ++it)
        attributes.insert(it.key(), it.value());
    return attributes;
}

QString objectPath(int number)
{
    return QStringLiteral("objects[%1]").arg(number);
}

} // namespace

PageBuilder::PageBuilder(const PluginLoader *loader, Document *document, Page *page)
    : m_loader(loader)
    , m_document(document)
    , m_page(page)
{
}

bool PageBuilder::load(const PageFile &file, const Progress &progress)
{
    if (!loadImages(file))
        return false;
    for (const PageObject &description : file.objects()) {
        if (!isWanted(progress, m_made.size(), file.objects().size()) || !loadObject(description))
            return false;
    }
    return true;
}

bool PageBuilder::loadImages(const PageFile &file)
{
    const QMap<QString, QByteArray> &images = file.images();
    for (auto it = images.constBegin(); it != images.constEnd(); ++it) {
        if (!m_document->restoreImage(it.key(), it.value())) {
            m_error = PageText::tr("images.%1: is no PNG that can be shown").arg(it.key());
            return false;
        }
    }
    return true;
}

bool PageBuilder::loadObject(const PageObject &description)
{
    const int number = m_made.size();
    m_made.append({description, nullptr});
    if (description.form == PageObject::Form::Unknown) {
        m_warnings.append(PageText::tr("%1: unknown kind '%2', left out")
                              .arg(objectPath(number), description.kind));
        return true;
    }
    CVXRootObject *object = description.kind == PageFile::artTextKind()
                                ? m_loader->createArtText(number + 1, m_page)
                                : m_loader->createText(number + 1, m_page);
    m_page->addObject(object);
    QJsonObject record = description.record;
    const bool loaded = description.form == PageObject::Form::Record
                            ? object->loadJson(record)
                            : loadWritten(object, description);
    if (!loaded) {
        m_error = PageText::tr("%1: the text object refuses it").arg(objectPath(number));
        return false;
    }
    object->setZorder(m_page->objects().size()
                      - 1); // the order of the file, whatever a record says
    m_made.last().object = object;
    return true;
}

bool PageBuilder::loadWritten(CVXRootObject *object, const PageObject &description) const
{
    const bool isBox = description.layout != PageObject::Layout::Line;
    DocumentChange change;
    change.wrapped = isBox;
    const QString string =
        changedDocument(documentString(description.text,
                                       united(defaultRunAttributes(), description.runAttributes),
                                       united(defaultParagraphAttributes(description.vertical),
                                              description.paragraphAttributes),
                                       description.vertical),
                        change);
    TextPlace place;
    place.pos = description.pos;
    place.box = isBox ? description.size : QSizeF();
    place.flip = description.flip;
    place.mirror = description.mirror;
    place.picture = description.picture;
    place.picturePos = description.picturePos;
    return loadDocumentString(object, string, inspectDocumentString(string), place);
}

void PageBuilder::arrange()
{
    for (const Made &made : qAsConst(m_made)) {
        if (made.object && made.description.form == PageObject::Form::Written)
            arrange(made);
    }
}

void PageBuilder::arrange(const Made &made)
{
    const PageObject &description = made.description;
    CVXRootObject *object = made.object;
    const bool showsPicture = !description.picture.isEmpty()
                              && !TextObject::missingFonts(object).isEmpty();
    if (showsPicture)
        return;
    if (description.layout == PageObject::Layout::Line) {
        object->setPos(description.pos, false);
        if (!description.size.isEmpty())
            object->setSize(description.size, /*undo=*/false, /*notify=*/true);
    } else {
        // The object takes in what its text reaches beyond the box; the place is that of the box.
        object->setPos(description.pos + TextObject::overhang(object), false);
    }
    if (description.layout == PageObject::Layout::GrowingBox)
        TextObject::letBoxGrow(object);
    if (description.rotation != 0)
        object->rotateObj(description.rotation, false);
}

QVector<CVXRootObject *> PageBuilder::objects() const
{
    QVector<CVXRootObject *> objects;
    for (const Made &made : m_made)
        objects.append(made.object);
    return objects;
}

CVXRootObject *PageBuilder::object(const QString &name) const
{
    for (const Made &made : m_made) {
        if (!name.isEmpty() && made.description.name == name)
            return made.object;
    }
    bool isNumber = false;
    const int number = name.toInt(&isNumber);
    const bool isThere = isNumber && number >= 0 && number < m_made.size();
    return isThere ? m_made.at(number).object : nullptr;
}
