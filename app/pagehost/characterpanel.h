// SPDX-License-Identifier: MIT
// characterpanel.h -- the look of the characters of the selected text.
#ifndef PAGEHOST_CHARACTERPANEL_H
#define PAGEHOST_CHARACTERPANEL_H

#include "app/pagehost/panel.h"

#include <QHash>

class ColorButton;
class FlagButton;
class FontFamilyBox;
class QFormLayout;
class QLayout;

/// Shows and changes the attributes of runs, and those that art texts have too.
class CharacterPanel : public Panel
{
    Q_OBJECT

public:
    explicit CharacterPanel(TextSelection *selection);

protected:
    void refresh() override;

private:
    void addFamily(QFormLayout *form);
    void addStyles(QFormLayout *form);
    void addForms(QFormLayout *form);
    void addScales(QFormLayout *form);
    void addSpacings(QFormLayout *form);
    void addFlag(QLayout *row, const char *key, const QString &sign, const QString &name);
    void addPairedFlag(QLayout *row, const char *key, const char *other, const QString &sign,
                       const QString &name);
    FlagButton *makeFlag(QLayout *row, const char *key, const QString &sign, const QString &name);
    NumberField *addNumber(const char *key, NumberField *field);

    FontFamilyBox *m_family;
    ColorButton *m_color;
    QHash<QString, FlagButton *> m_flags;
    QHash<QString, NumberField *> m_numbers;
};

#endif
