// SPDX-License-Identifier: MIT
// artpanel.h -- the style of the selected art texts.
#ifndef PAGEHOST_ARTPANEL_H
#define PAGEHOST_ARTPANEL_H

#include <QWidget>

class PluginLoader;
class StyleGallery;
class TextSelection;

/// A gallery of all styles of art text with the user's own words.
class ArtPanel : public QWidget
{
    Q_OBJECT

public:
    ArtPanel(TextSelection *selection, const PluginLoader *loader);

private:
    bool hasOpenArtText() const;
    void refresh();

    TextSelection *m_selection;
    StyleGallery *m_gallery;
};

#endif
