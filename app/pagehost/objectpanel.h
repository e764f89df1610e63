// SPDX-License-Identifier: MIT
// objectpanel.h -- form and place of the selected objects.
#ifndef PAGEHOST_OBJECTPANEL_H
#define PAGEHOST_OBJECTPANEL_H

#include <QVariant>
#include <QWidget>

#include <vector>

class CVXRootObject;
class NumberField;
class QCheckBox;
class QComboBox;
class QFormLayout;
class TextSelection;

/// Shows and changes the direction of the text, how it takes its room, the mirror images, and place,
/// size and angle in exact numbers.
class ObjectPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ObjectPanel(TextSelection *selection);

private:
    using Read = double (*)(CVXRootObject *object);
    using Write = void (*)(CVXRootObject *object, double value);
    using ReadFlag = bool (*)(CVXRootObject *object);
    struct Place {
        NumberField *field;
        Read read;
    };
    struct Flag {
        QCheckBox *box;
        ReadFlag read;
    };

    void addPlace(QFormLayout *form, const char *name, NumberField *field, const char *stepName,
                  Read read, Write write);
    void addFlag(QFormLayout *form, const char *name, const QString &text, bool flips,
                 ReadFlag read);
    QList<CVXRootObject *> openObjects() const;
    void setForm(int form);
    void refreshText();
    void refreshPlace();

    TextSelection *m_selection;
    QComboBox *m_direction;
    QComboBox *m_form;
    std::vector<Place> m_places;
    std::vector<Flag> m_flags;
};

#endif
