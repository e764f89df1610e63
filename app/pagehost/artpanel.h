// SPDX-License-Identifier: MIT
// artpanel.h -- the style of the selected art texts.
#ifndef PAGEHOST_ARTPANEL_H
#define PAGEHOST_ARTPANEL_H

#include "app/pagehost/panel.h"

#include <QHash>

class ColorButton;
class PluginLoader;
class QFormLayout;
class StyleGallery;

/// A gallery of all styles of art text with the user's own words, and what art texts alone have: the line
/// around their characters and their spacings. What they share with other texts stands elsewhere.
class ArtPanel : public Panel
{
    Q_OBJECT

public:
    ArtPanel(TextSelection *selection, const PluginLoader *loader);

protected:
    void refresh() override;

private:
    void addNumber(QFormLayout *form, const QString &name, const char *word, NumberField *field);

    StyleGallery *m_gallery;
    ColorButton *m_lineColor;
    QHash<QString, NumberField *> m_numbers;
};

#endif
