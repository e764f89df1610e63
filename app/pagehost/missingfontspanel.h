// SPDX-License-Identifier: MIT
// missingfontspanel.h -- the fonts that the page names and the machine lacks.
#ifndef PAGEHOST_MISSINGFONTSPANEL_H
#define PAGEHOST_MISSINGFONTSPANEL_H

#include <QPointer>
#include <QStringList>
#include <QWidget>

class CVXRootObject;
class FontFamilyBox;
class PageSession;
class QLabel;
class QListWidget;
class QPushButton;

/// Lists the missing fonts. A replacement is shown on the page at once; it becomes one step when it is
/// confirmed, and the page is as it was when it is cancelled.
class MissingFontsPanel : public QWidget
{
    Q_OBJECT

public:
    MissingFontsPanel();

    void setSession(PageSession *session);
    /// Shows \a replacement in place of the chosen font on the page.
    void preview(const QString &replacement);
    void confirm();
    void cancel();

Q_SIGNALS:
    /// A text with missing fonts has come to be on the page.
    void fontsMissed();

protected:
    void hideEvent(QHideEvent *event) override;

private:
    QString chosen() const;
    QList<CVXRootObject *> textsThatMiss(const QString &family) const;
    void look();
    void refresh();
    void refreshButtons();

    QPointer<PageSession> m_session;
    QList<CVXRootObject *> m_seenObjects; ///< to compare with, never to call
    int m_seenIndex = -1;                 ///< of the undo stack
    bool m_isActing = false;              ///< itself
    QListWidget *m_list;
    FontFamilyBox *m_replacement;
    QLabel *m_none;
    QPushButton *m_confirm;
    QPushButton *m_cancel;
    QStringList m_families;
    QString m_previewed;              ///< font whose replacement is shown; empty for none
    QString m_shownInstead;           ///< what is shown in its place
    QList<CVXRootObject *> m_changed; ///< that show it, to compare with page objects first
};

#endif
