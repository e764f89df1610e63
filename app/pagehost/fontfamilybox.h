// SPDX-License-Identifier: MIT
// fontfamilybox.h -- the choice of a font family.
#ifndef PAGEHOST_FONTFAMILYBOX_H
#define PAGEHOST_FONTFAMILYBOX_H

#include <QComboBox>
#include <QStringList>

class QStandardItemModel;

/// All installed families, each in its own face, ahead of them those used last. Typing searches: any
/// part of a name finds it. A family that is not installed is shown with a sign.
class FontFamilyBox : public QComboBox
{
    Q_OBJECT

public:
    explicit FontFamilyBox(const QString &name, QWidget *parent = nullptr);

    /// Shows \a family; an empty field for an empty name. Tells nobody.
    void show(const QString &family);
    QString family() const { return m_family; }
    bool isMissing() const { return m_isMissing; }

    /// The families used last, the very last first.
    static QStringList recentFamilies();
    static void noteRecent(const QString &family);

Q_SIGNALS:
    /// The user wants \a family, which is installed.
    void picked(const QString &family);
    /// The user has gone on to \a family without the list. \a goesOn: it takes the place of the family
    /// before, which was stepped to as well.
    void stepped(const QString &family, bool goesOn);
    /// The user has taken back such steps: \a before is what was shown ahead of them, invalid for several.
    void givenUp(const QVariant &before);
    /// The pointer or the keys rest on \a family in the open list.
    void tried(const QString &family);
    /// The user has left the field: by Enter, Escape, or with a row of a list.
    void left();

protected:
    void showPopup() override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    enum class Match { Whole, Part };

    void fill();
    void takeTyped(Match match);
    void take(const QString &family);
    void step(const QString &family);
    void endSteps();
    void escape();

    QStandardItemModel *m_families;
    QAction *m_missingSign;
    QString m_family;
    QString m_beforeSteps;
    bool m_isMissing = false;
    bool m_isStepping = false; ///< since the box got the focus
    bool m_stepsByKey = false; ///< what is activated right now
};

#endif
