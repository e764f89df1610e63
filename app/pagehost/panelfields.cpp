// SPDX-License-Identifier: MIT
#include "app/pagehost/panelfields.h"

#include <QColorDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>

#include <utility>

namespace {

constexpr int smallestField = 72; // pixels
constexpr int signHeight = 3;     // pixels of the sign of several values
constexpr QSize swatchSize(28, 14);

QPixmap swatch(const QColor &color, const QWidget &button)
{
    const double pixelRatio = button.devicePixelRatioF();
    QPixmap picture(swatchSize * pixelRatio);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture); // in its own pixels, that the edge is one of them
        painter.setPen(button.palette().color(QPalette::Dark));
        painter.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::gray, Qt::DiagCrossPattern));
        painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    }
    picture.setDevicePixelRatio(pixelRatio);
    return picture;
}

} // namespace

// NumberField

NumberField::NumberField(const QString &name, double smallest, double largest, int decimals,
                         const QString &unit, double start)
    : m_start(start)
{
    setAccessibleName(name);
    setToolTip(name);
    setDecimals(decimals);
    setRange(smallest, largest);
    if (!unit.isEmpty())
        m_suffix = QLatin1Char(' ') + unit;
    setSuffix(m_suffix);
    setMinimumWidth(qMax(smallestField, sizeHint().width())); // also without the unit
    setKeyboardTracking(false);
    setFocusPolicy(Qt::StrongFocus);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_isTyping = true;
        m_isUsable = hasAcceptableInput();
    });
    connect(this, &QAbstractSpinBox::editingFinished, this, &NumberField::commit);
}

/// What is shown already is not set again: a panel shows its values after every key.
bool NumberField::shows(bool isNumber, double number) const
{
    return !m_isTyping && m_isMixed == !isNumber && (m_isMixed || m_shown == number)
           && (m_isMixed ? lineEdit()->text().isEmpty() : !lineEdit()->isModified());
}

void NumberField::show(const QVariant &value)
{
    if (m_isTyping && hasFocus())
        return; // the user is at it
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (shows(isNumber, number))
        return;
    const QSignalBlocker blocker(this);
    m_isTyping = false;
    setMixed(!isNumber);
    m_shown = isNumber ? number : m_start;
    setValue(m_shown);
    if (m_isMixed)
        lineEdit()->clear();
    else
        lineEdit()->setText(prefix() + textFromValue(this->value()) + suffix());
    setAccessibleDescription(m_isMixed ? tr("Several values, or none") : QString());
}

/// Of several values no unit is shown either, which says nothing alone.
void NumberField::setMixed(bool mixed)
{
    m_isMixed = mixed;
    const QString shown = mixed ? QString() : m_suffix;
    if (suffix() != shown)
        setSuffix(shown);
}

QString NumberField::textFromValue(double value) const
{
    if (m_isMixed && !m_isTyping)
        return {};
    QString text = locale().toString(value, 'f', decimals());
    const QString point = locale().decimalPoint();
    if (text.contains(point)) { // 12.50 reads as 12.5
        while (text.endsWith(locale().zeroDigit()))
            text.chop(1);
        if (text.endsWith(point))
            text.chop(point.size());
    }
    text.remove(locale().groupSeparator());
    return text;
}

void NumberField::stepBy(int steps)
{
    if (m_isTyping)
        interpretText();
    const double from = m_isMixed && !m_isTyping ? m_start : value();
    const double to = qBound(minimum(), from + steps * singleStep(), maximum());
    const bool goesOn = m_isStepping;
    if (to == m_shown && !m_isMixed)
        return;
    if (!goesOn)
        m_beforeSteps = shown();
    m_isStepping = true;
    setMixed(false);
    setValue(to);
    m_isTyping = false;
    m_shown = value();
    Q_EMIT stepped(m_shown, goesOn);
}

/// Undo and redo are the page's while there is nothing typed to undo.
bool NumberField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isUndo = key->matches(QKeySequence::Undo);
        const bool isRedo = key->matches(QKeySequence::Redo);
        const bool isOwn =
            m_isTyping && (isUndo ? lineEdit()->isUndoAvailable() : lineEdit()->isRedoAvailable());
        if ((isUndo || isRedo) && !isOwn) {
            event->ignore();
            return true;
        }
    }
    return QDoubleSpinBox::event(event);
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        escape();
        event->accept();
        return;
    }
    QDoubleSpinBox::keyPressEvent(event);
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        m_isStepping = false;
        event->accept();
        Q_EMIT left();
    }
}

void NumberField::escape()
{
    const bool hasStepped = m_isStepping;
    const QVariant before = hasStepped ? m_beforeSteps : shown();
    m_isTyping = false;
    m_isStepping = false;
    lineEdit()->setModified(true); // whatever is typed there gives way
    show(before);
    if (hasStepped)
        Q_EMIT givenUp(before);
    Q_EMIT left();
}

void NumberField::focusOutEvent(QFocusEvent *event)
{
    QDoubleSpinBox::focusOutEvent(event);
    m_isStepping = false;
}

/// The wheel scrolls the panel, unless the field has been entered.
void NumberField::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void NumberField::commit()
{
    if (!m_isTyping)
        return;
    m_isTyping = false;
    m_isStepping = false;
    if (!m_isUsable) { // nothing, or a sign alone
        lineEdit()->setModified(true);
        show(shown());
        return;
    }
    const double number = value();
    const bool isNew = m_isMixed || number != m_shown;
    setMixed(false);
    m_shown = number;
    if (isNew)
        Q_EMIT entered(number);
}

// FlagButton

FlagButton::FlagButton(const QString &sign, const QString &name)
{
    setText(sign);
    setAccessibleName(name);
    setToolTip(name);
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAutoRaise(true);
    setMinimumSize(28, 26);
    connect(this, &QAbstractButton::clicked, this, [this] { setMixed(false); });
}

void FlagButton::show(const QVariant &value)
{
    const QSignalBlocker blocker(this);
    setChecked(value.toBool());
    setMixed(!value.isValid());
}

void FlagButton::setMixed(bool mixed)
{
    if (m_isMixed == mixed)
        return;
    m_isMixed = mixed;
    setAccessibleDescription(mixed ? tr("On for a part") : QString());
    update();
}

void FlagButton::paintEvent(QPaintEvent *event)
{
    QToolButton::paintEvent(event);
    if (!m_isMixed || !isEnabled())
        return;
    QPainter painter(this);
    painter.fillRect(QRect(6, height() - signHeight - 1, width() - 12, signHeight),
                     palette().brush(QPalette::Highlight));
}

// FlagBox

FlagBox::FlagBox(const QString &name)
    : QCheckBox(name)
{
    setAccessibleName(name);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, [this] {
        const bool on = checkState() != Qt::Unchecked;
        show(on);
        Q_EMIT chosen(on);
    });
}

void FlagBox::show(const QVariant &value)
{
    const QSignalBlocker blocker(this);
    setTristate(!value.isValid());
    setCheckState(!value.isValid() ? Qt::PartiallyChecked
                  : value.toBool() ? Qt::Checked
                                   : Qt::Unchecked);
}

// ChoiceBox

ChoiceBox::ChoiceBox(const QString &name, const QStringList &choices)
{
    setAccessibleName(name);
    addItems(choices);
    setFocusPolicy(Qt::TabFocus);
}

void ChoiceBox::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter && event->key() != Qt::Key_Escape) {
        QComboBox::keyPressEvent(event);
        return;
    }
    event->accept();
    Q_EMIT left();
}

void ChoiceBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

// ColorButton

ColorButton::ColorButton(const QString &name)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::TabFocus);
    setIconSize(swatchSize);
    show(QVariant());
    connect(this, &QAbstractButton::clicked, this, &ColorButton::pick);
}

void ColorButton::show(const QVariant &value)
{
    const auto color = value.value<QColor>();
    if (color == m_color && !icon().isNull())
        return;
    m_color = color;
    setIcon(swatch(m_color, *this));
    setAccessibleDescription(m_color.isValid() ? m_color.name() : tr("Several colors"));
}

void ColorButton::pick()
{
    const QColor color = QColorDialog::getColor(m_color.isValid() ? m_color : QColor(Qt::black),
                                                window(), accessibleName(),
                                                QColorDialog::ShowAlphaChannel);
    if (!color.isValid())
        return;
    show(color);
    Q_EMIT picked(color);
}

// LiveSlider

LiveSlider::LiveSlider(const QString &name)
    : QSlider(Qt::Horizontal)
{
    setAccessibleName(name);
    setToolTip(name);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSlider::sliderPressed, this, [this] {
        m_isStepping = false;
        m_start = value();
        m_hasMoved = false;
        setFocus(); // for Escape
    });
    connect(this, &QSlider::valueChanged, this, &LiveSlider::take);
    connect(this, &QSlider::sliderReleased, this, [this] {
        if (m_hasMoved && !m_isGivenUp)
            Q_EMIT committed(value());
        m_hasMoved = false;
    });
}

void LiveSlider::show(int value)
{
    if (isSliderDown())
        return;
    const QSignalBlocker blocker(this);
    setValue(value);
    m_shown = this->value();
}

void LiveSlider::take(int value)
{
    if (!isSliderDown()) {
        step(value);
        return;
    }
    m_hasMoved = true;
    Q_EMIT previewed(value);
}

void LiveSlider::step(int value)
{
    const bool goesOn = std::exchange(m_isStepping, true);
    if (!goesOn)
        m_start = m_shown;
    m_shown = value;
    Q_EMIT stepped(value, goesOn);
}

/// While there is something to give up Escape is the slider's, whatever a menu makes of it.
bool LiveSlider::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && (isSliderDown() || m_isStepping)
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QSlider::event(event);
}

void LiveSlider::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || !(isSliderDown() || m_isStepping)) {
        QSlider::keyPressEvent(event);
        return;
    }
    event->accept();
    escape();
}

void LiveSlider::escape()
{
    const bool isDrag = isSliderDown();
    m_isStepping = false;
    m_isGivenUp = isDrag;
    setSliderDown(false);
    show(m_start);
    if (isDrag)
        Q_EMIT cancelled();
    else
        Q_EMIT givenUp(m_start);
}

void LiveSlider::focusOutEvent(QFocusEvent *event)
{
    QSlider::focusOutEvent(event);
    m_isStepping = false;
}

/// The wheel scrolls the panel, unless the slider has been entered.
void LiveSlider::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}

void LiveSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_isGivenUp)
        QSlider::mouseMoveEvent(event);
}

void LiveSlider::mouseReleaseEvent(QMouseEvent *event)
{
    QSlider::mouseReleaseEvent(event);
    m_isGivenUp = false;
    if (m_isStepping)
        Q_EMIT left();
}
