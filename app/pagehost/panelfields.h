// SPDX-License-Identifier: MIT
// panelfields.h -- controls of panels that can show that there are several values.
#ifndef PAGEHOST_PANELFIELDS_H
#define PAGEHOST_PANELFIELDS_H

#include <QCheckBox>
#include <QColor>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSlider>
#include <QToolButton>
#include <QVariant>

/// A number, or nothing when there are several. Enter and Tab take what is typed; Escape gives it up, and
/// all steps up and down since the field got the focus, or since Enter, with it.
class NumberField : public QDoubleSpinBox
{
    Q_OBJECT

public:
    /// \param name  for who cannot see the label beside it
    /// \param start what a step in an empty field starts from
    NumberField(const QString &name, double smallest, double largest, int decimals,
                const QString &unit = QString(), double start = 0);

    /// Shows \a value; an empty field for one that is no number. Tells nobody.
    void show(const QVariant &value);
    bool isMixed() const { return m_isMixed; }

    void stepBy(int steps) override;

Q_SIGNALS:
    /// The user wants \a value, and has typed it.
    void entered(double value);
    /// The user has stepped up or down to \a value. \a goesOn: it takes the place of the value before,
    /// which was stepped to as well.
    void stepped(double value, bool goesOn);
    /// The user has taken back the steps up and down: \a before is what was shown ahead of them, invalid
    /// for several values.
    void givenUp(const QVariant &before);
    /// The user has left the field by Enter or Escape.
    void left();

protected:
    QString textFromValue(double value) const override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void commit();
    void setMixed(bool mixed);
    void escape();
    bool shows(bool isNumber, double number) const;
    QVariant shown() const { return m_isMixed ? QVariant() : QVariant(m_shown); }

    QString m_suffix; ///< the unit
    double m_start;
    double m_shown = 0;
    bool m_isMixed = true;
    bool m_isTyping = false;
    bool m_isUsable = false; ///< what is typed is a number
    bool m_isStepping = false;
    QVariant m_beforeSteps;
};

/// A button that is on, off, or neither when there are both. A click makes it on or off and leaves the
/// focus where it is.
class FlagButton : public QToolButton
{
    Q_OBJECT

public:
    FlagButton(const QString &sign, const QString &name);

    /// Shows \a value; neither for an invalid one. Tells nobody.
    void show(const QVariant &value);
    bool isMixed() const { return m_isMixed; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void setMixed(bool mixed);

    bool m_isMixed = false;
};

/// The same as a box with its name beside it.
class FlagBox : public QCheckBox
{
    Q_OBJECT

public:
    explicit FlagBox(const QString &name);

    /// Shows \a value; neither for an invalid one. Tells nobody.
    void show(const QVariant &value);

Q_SIGNALS:
    /// The user wants it \a on; what was neither is on first.
    void chosen(bool on);
};

/// A choice of a few things. Tab alone gives it the keys, and the wheel turns it only then.
class ChoiceBox : public QComboBox
{
    Q_OBJECT

public:
    ChoiceBox(const QString &name, const QStringList &choices);

Q_SIGNALS:
    /// The user has left the box by Enter or Escape.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

/// A colour, or a crossed field when there are several.
class ColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit ColorButton(const QString &name);

    /// Shows \a value; a crossed field for one that is no colour.
    void show(const QVariant &value);
    QColor color() const { return m_color; }

Q_SIGNALS:
    void picked(const QColor &color);

private:
    void pick();

    QColor m_color;
};

/// A slider whose drag can be given up by Escape, and so can all moves by keys, by the wheel and by clicks
/// beside the knob since it got the focus.
class LiveSlider : public QSlider
{
    Q_OBJECT

public:
    explicit LiveSlider(const QString &name);

    /// Moves the slider without telling anybody.
    void show(int value);

Q_SIGNALS:
    /// The drag goes on: \a value for now.
    void previewed(int value);
    /// The drag has ended: \a value for good.
    void committed(int value);
    /// Escape has ended the drag.
    void cancelled();
    /// The slider has moved to \a value without a drag. \a goesOn: it takes the place of the value before,
    /// which came that way too.
    void stepped(int value, bool goesOn);
    /// The user has taken back the moves: \a before is what was shown ahead of them.
    void givenUp(const QVariant &before);
    /// The button has been released beside the knob.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool event(QEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void take(int value);
    void step(int value);
    void escape();

    int m_start = 0;           ///< ahead of the drag, or of the moves without one
    int m_shown = 0;           ///< that is known outside
    bool m_hasMoved = false;   ///< in the drag
    bool m_isGivenUp = false;  ///< until the button is released
    bool m_isStepping = false; ///< has moved without a drag since it got the focus
};

#endif
