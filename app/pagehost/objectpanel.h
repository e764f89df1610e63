// SPDX-License-Identifier: MIT
// objectpanel.h -- form and place of the selected objects.
#ifndef PAGEHOST_OBJECTPANEL_H
#define PAGEHOST_OBJECTPANEL_H

#include "app/pagehost/panel.h"

#include <vector>

class ChoiceBox;
class CVXRootObject;
class FlagBox;
class QFormLayout;

/// Shows and changes the direction of the text, how it takes its room, the mirror images, and place,
/// size and angle in exact numbers.
class ObjectPanel : public Panel
{
    Q_OBJECT

public:
    explicit ObjectPanel(TextSelection *selection);

protected:
    void refresh() override;

private:
    using Read = double (*)(CVXRootObject *object);
    using Write = void (*)(CVXRootObject *object, double value);
    using ReadFlag = bool (*)(CVXRootObject *object);
    struct Place {
        NumberField *field;
        Read read;
    };
    struct Flag {
        FlagBox *box;
        ReadFlag read;
    };

    void addText(QFormLayout *form);
    void addMirrors(QFormLayout *form);
    void addPlaces(QFormLayout *form);
    void addPlace(QFormLayout *form, const char *name, NumberField *field, const char *stepName,
                  Read read, Write write);
    void addFlag(QFormLayout *form, const char *name, const QString &text, bool flips,
                 ReadFlag read);
    void changeAll(const QString &stepName, const std::function<void(CVXRootObject *)> &change);
    void setForm(int form);
    void refreshPlace();

    ChoiceBox *m_direction;
    ChoiceBox *m_form;
    std::vector<Place> m_places;
    std::vector<Flag> m_flags;
};

#endif
