// SPDX-License-Identifier: MIT
// panel.h -- what all panels that show the selected objects have in common.
#ifndef PAGEHOST_PANEL_H
#define PAGEHOST_PANEL_H

#include "app/pagehost/textselection.h"

#include <QVariant>
#include <QWidget>

#include <functional>

class NumberField;

/// Follows the selection while it is seen. One that is hidden, or lies behind another panel, asks
/// nothing of the objects; it is brought up to date when it comes to be seen.
class Panel : public QWidget
{
    Q_OBJECT

public:
    explicit Panel(TextSelection *selection);

Q_SIGNALS:
    /// The controls show the selection as it is now.
    void refreshed();

protected:
    /// Shows the selection in the controls.
    virtual void refresh() = 0;
    void bringUpToDate();
    bool isSeen() const;
    /// Gives what the user enters in \a field to \a set, which makes one step at most. All steps up and
    /// down while the field has the focus are one step together, and Escape takes it back.
    void connectNumber(NumberField *field, const std::function<void(double)> &set);
    /// The same of what the user steps to in \a control, a NumberField, LiveSlider or FontFamilyBox.
    template<typename Control>
    void connectSteps(Control *control, const std::function<void(const QVariant &)> &set)
    {
        connect(control, &Control::stepped, this, [this, set](const QVariant &value, bool goesOn) {
            if (goesOn)
                m_selection->takeBack();
            set(value);
        });
        connect(control, &Control::givenUp, this, [this, set](const QVariant &before) {
            // A format at a caret has made no step: it is set back.
            if (!m_selection->takeBack() && before.isValid())
                set(before);
        });
    }
    void paintEvent(QPaintEvent *event) override;

    TextSelection *const m_selection;

private:
    bool m_isStale = true;
};

#endif
