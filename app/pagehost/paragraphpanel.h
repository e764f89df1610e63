// SPDX-License-Identifier: MIT
// paragraphpanel.h -- the look of the paragraphs of the selected text.
#ifndef PAGEHOST_PARAGRAPHPANEL_H
#define PAGEHOST_PARAGRAPHPANEL_H

#include "app/pagehost/panel.h"

#include <QHash>

class ChoiceBox;
class FlagBox;
class FlagButton;
class QFormLayout;

/// Shows and changes the attributes of paragraphs.
class ParagraphPanel : public Panel
{
    Q_OBJECT

public:
    explicit ParagraphPanel(TextSelection *selection);

protected:
    void refresh() override;

private:
    void addAlignments(QFormLayout *form);
    void addNumber(QFormLayout *form, const char *key, const QString &name);
    void addHeadTail(QFormLayout *form);
    void addCheck(QFormLayout *form, const char *key, const QString &name);
    void setAlignment(const QString &name);
    void refreshAlignments();

    QHash<QString, FlagButton *> m_alignments; ///< by name
    QHash<QString, NumberField *> m_numbers;
    QHash<QString, FlagBox *> m_checks;
    ChoiceBox *m_headTail;
};

#endif
