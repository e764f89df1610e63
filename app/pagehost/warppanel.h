// SPDX-License-Identifier: MIT
// warppanel.h -- the warp of the selected texts.
#ifndef PAGEHOST_WARPPANEL_H
#define PAGEHOST_WARPPANEL_H

#include "app/page/textwarp.h"
#include "app/pagehost/panel.h"

class ChoiceBox;
class CVXRootObject;
class LiveSlider;
class PluginLoader;
class QFormLayout;
class QPushButton;
class StyleGallery;

/// A gallery of the styles with the user's own words, and the values of the style. The drag of a slider
/// shows on the page what it will give; its release makes one step, Escape brings back what was.
class WarpPanel : public Panel
{
    Q_OBJECT

public:
    WarpPanel(TextSelection *selection, const PluginLoader *loader);

protected:
    void refresh() override;

private:
    /// A value from -100 to 100 percent.
    struct Value {
        LiveSlider *slider = nullptr;
        NumberField *field = nullptr;
        const char *key = nullptr;        ///< among the attributes, in percent
        double TextWarp::*part = nullptr; ///< -1 to 1
    };

    void addControls(QFormLayout *form);
    void addValue(QFormLayout *form, Value &value, const QString &name, const char *key,
                  double TextWarp::*part);
    QList<CVXRootObject *> targets() const;
    TextWarp warpOf(CVXRootObject *object) const;
    void setPart(double TextWarp::*part, double value, bool commit);
    bool isAny(const std::function<bool(const TextWarp &warp)> &isNew) const;
    void setStyle(int style);
    void setOrientation(bool acrossColumns);
    void reset();
    void restore();
    void change(bool commit, const std::function<void(TextWarp &warp)> &edit);
    void refreshValues(bool isBent);

    StyleGallery *m_gallery;
    ChoiceBox *m_orientation;
    QPushButton *m_reset;
    Value m_bend;
    Value m_horizontal;
    Value m_vertical;
    QList<CVXRootObject *>
        m_previewed; ///< whose drag has begun, to compare with page objects first
};

#endif
