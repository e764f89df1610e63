// SPDX-License-Identifier: MIT
// paragraphpanel.h -- the look of the paragraphs of the selected text.
#ifndef PAGEHOST_PARAGRAPHPANEL_H
#define PAGEHOST_PARAGRAPHPANEL_H

#include <QHash>
#include <QList>
#include <QWidget>

class FlagButton;
class NumberField;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLayout;
class TextSelection;

/// Shows and changes the attributes of paragraphs.
class ParagraphPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ParagraphPanel(TextSelection *selection);

private:
    void addAlignments(QFormLayout *form);
    void addNumber(QFormLayout *form, const char *key, const QString &name);
    QCheckBox *addCheck(QFormLayout *form, const char *key, const QString &name);
    void setAlignment(const QString &name);
    void refresh();
    void refreshAlignments();

    TextSelection *m_selection;
    QHash<QString, FlagButton *> m_alignments; ///< by name
    QHash<QString, NumberField *> m_numbers;
    QHash<QString, QCheckBox *> m_checks;
    QComboBox *m_headTail;
};

#endif
