// SPDX-License-Identifier: MIT
#include "app/pagehost/artpanel.h"

#include "app/pagehost/pagesession.h"
#include "app/pagehost/panelfields.h"
#include "app/pagehost/stylegallery.h"
#include "app/pagehost/stylenames.h"
#include "app/pagehost/textselection.h"

#include <QFormLayout>

namespace {

constexpr double widestLine = 1000; // page pixels
constexpr double largestSpacing = 10000;
const QString styleWord = QStringLiteral("shape");
const QString lineColorWord = QStringLiteral("line_color");

} // namespace

ArtPanel::ArtPanel(TextSelection *selection, const PluginLoader *loader)
    : Panel(selection)
    , m_gallery(new StyleGallery(tr("Styles of art text"),
                                 [loader](const SampleText &text, int style, const QSize &size) {
                                     return artSample(loader, text, style, size);
                                 }))
    , m_lineColor(new ColorButton(tr("Line color")))
{
    m_gallery->setObjectName(QStringLiteral("artGallery"));
    for (int style = 0; style < artStyleCount; ++style)
        m_gallery->addStyle(style, artStyleName(style));
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_gallery, 1);
    auto *form = new QFormLayout;
    column->addLayout(form);
    m_lineColor->setObjectName(lineColorWord);
    form->addRow(tr("Line color"), m_lineColor);
    const auto spacing = [](const QString &name) {
        return new NumberField(name, -largestSpacing, largestSpacing, 2, tr("px"));
    };
    addNumber(form, tr("Line width"), "line_width",
              new NumberField(tr("Line width, 0 for no line"), 0, widestLine, 2, tr("px")));
    addNumber(form, tr("Letter spacing"), "art_letterspacing",
              spacing(tr("Letter spacing of art text")));
    addNumber(form, tr("Row spacing"), "art_rowspacing", spacing(tr("Row spacing of art text")));
    connect(m_gallery, &StyleGallery::picked, this,
            [this](int style) { m_selection->session()->setArtStyle(style); });
    connect(m_lineColor, &ColorButton::picked, this, [this](const QColor &color) {
        m_selection->apply({{lineColorWord, color}});
    });
}

void ArtPanel::addNumber(QFormLayout *form, const QString &name, const char *word,
                         NumberField *field)
{
    const QString attribute = QLatin1String(word);
    field->setObjectName(attribute);
    form->addRow(name, field);
    m_numbers.insert(attribute, field);
    connectNumber(field, [this, attribute](double value) {
        m_selection->apply({{attribute, value}});
    });
}

void ArtPanel::refresh()
{
    setEnabled(m_selection->canChange(styleWord));
    const QVariant style = m_selection->value(styleWord);
    m_gallery->show(style.isValid() ? style.toInt() : -1);
    m_lineColor->show(m_selection->value(lineColorWord));
    for (auto it = m_numbers.constBegin(); it != m_numbers.constEnd(); ++it)
        it.value()->show(m_selection->value(it.key()));
    m_gallery->setSample({m_selection->sampleWords(),
                          m_selection->value(QStringLiteral("font_family")).toString(),
                          palette().color(QPalette::Text), devicePixelRatioF()});
}
