// SPDX-License-Identifier: MIT
// stylegallery.h -- a list of styles, each with a picture of the user's own words.
#ifndef PAGEHOST_STYLEGALLERY_H
#define PAGEHOST_STYLEGALLERY_H

#include "app/pagehost/sampletext.h"

#include <QListWidget>
#include <QTimer>

#include <functional>

/// Pictures are made when the gallery is first seen with other words, a few at a time, and not before the
/// words have stood for a moment. One behind another panel makes none.
class StyleGallery : public QListWidget
{
    Q_OBJECT

public:
    using MakePicture =
        std::function<QPixmap(const SampleText &text, int style, const QSize &size)>;

    /// \param name for who cannot see the gallery
    StyleGallery(const QString &name, const MakePicture &makePicture);

    void addStyle(int style, const QString &name);
    /// What the pictures show from now on. Further remarks in \a variant, such as an orientation, make
    /// new pictures too.
    void setSample(const SampleText &text, int variant = 0);
    /// True while there are pictures to make.
    bool isStale() const { return m_next < count(); }
    /// Marks \a style as the one in force; a style that is not there marks none. Tells nobody.
    void show(int style);
    /// The style in force as the user sees it; -1 for none.
    int style() const;

Q_SIGNALS:
    void picked(int style);
    /// A picture of \a style has been made.
    void pictureMade(int style);

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeNext();
    void pick(const QListWidgetItem *item);

    MakePicture m_makePicture;
    SampleText m_text;
    int m_variant = 0;
    int m_next = 0; ///< row without a picture
    QTimer m_timer;
};

#endif
