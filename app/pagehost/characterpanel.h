// SPDX-License-Identifier: MIT
// characterpanel.h -- the look of the characters of the selected text.
#ifndef PAGEHOST_CHARACTERPANEL_H
#define PAGEHOST_CHARACTERPANEL_H

#include <QHash>
#include <QWidget>

class ColorButton;
class FlagButton;
class FontFamilyBox;
class NumberField;
class QLayout;
class TextSelection;

/// Shows and changes the attributes of runs.
class CharacterPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CharacterPanel(TextSelection *selection);

private:
    void addFlag(QLayout *row, const char *key, const QString &sign, const QString &name);
    void addPairedFlag(QLayout *row, const char *key, const char *other, const QString &sign,
                       const QString &name);
    NumberField *addNumber(const char *key, NumberField *field, double unset);
    void refresh();

    /// A field and what stands in it for a text that has never been given a value.
    struct Number {
        NumberField *field;
        double unset;
    };

    TextSelection *m_selection;
    FontFamilyBox *m_family;
    ColorButton *m_color;
    QHash<QString, FlagButton *> m_flags;
    QHash<QString, Number> m_numbers;
};

#endif
