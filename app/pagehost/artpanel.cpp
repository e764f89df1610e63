// SPDX-License-Identifier: MIT
#include "app/pagehost/artpanel.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/stylenames.h"
#include "app/pagehost/textcommands.h"
#include "app/pagehost/textselection.h"
#include "host/framework/cvxrootobject.h"

#include <QVBoxLayout>

#include <algorithm>

namespace {

/// The family of the first art text.
QString familyOf(const QList<CVXRootObject *> &objects)
{
    for (CVXRootObject *object : objects) {
        if (!TextCommands::isArtText(object))
            continue;
        AttributeMap attributes;
        object->getAllAttributes(attributes);
        return attributes.value(QStringLiteral("font_family")).toString();
    }
    return {};
}

} // namespace

ArtPanel::ArtPanel(TextSelection *selection, const PluginLoader *loader)
    : m_selection(selection)
    , m_gallery(new StyleGallery(tr("Styles of art text"),
                                 [loader](const SampleText &text, int style, const QSize &size) {
                                     return artSample(loader, text, style, size);
                                 }))
{
    m_gallery->setObjectName(QStringLiteral("artGallery"));
    for (int style = 0; style < artStyleCount; ++style)
        m_gallery->addStyle(style, artStyleName(style));
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_gallery);
    connect(m_gallery, &StyleGallery::picked, this,
            [this](int style) { m_selection->session()->setArtStyle(style); });
    connect(m_selection, &TextSelection::changed, this, &ArtPanel::refresh);
    refresh();
}

bool ArtPanel::hasOpenArtText() const
{
    const QList<CVXRootObject *> all = m_selection->objects();
    return std::any_of(all.begin(), all.end(), [](CVXRootObject *object) {
        return TextCommands::isArtText(object) && !object->isLocked();
    });
}

void ArtPanel::refresh()
{
    setEnabled(hasOpenArtText());
    m_gallery->show(m_selection->session() ? m_selection->session()->artStyle() : -1);
    m_gallery->setSample({m_selection->sampleWords(), familyOf(m_selection->objects()),
                          palette().color(QPalette::Text), devicePixelRatioF()});
}
