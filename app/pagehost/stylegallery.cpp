// SPDX-License-Identifier: MIT
#include "app/pagehost/stylegallery.h"

#include <QKeyEvent>
#include <QSignalBlocker>

namespace {

constexpr QSize pictureSize(72, 44);
constexpr int cellMargin = 8;
constexpr int linesOfName = 2;
constexpr int picturesAtATime = 4;
constexpr int pictureDelay = 60; // ms ahead of the next pictures, for keys to come first
constexpr int wordsDelay = 700;  // ms without other words, which are being typed

} // namespace

StyleGallery::StyleGallery(const QString &name, const MakePicture &makePicture)
    : m_makePicture(makePicture)
{
    setAccessibleName(name);
    setViewMode(IconMode);
    setMovement(Static);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setIconSize(pictureSize);
    setGridSize(pictureSize + QSize(cellMargin, cellMargin + linesOfName * fontMetrics().height()));
    setWordWrap(true);
    setTextElideMode(Qt::ElideRight);
    setMinimumHeight(2 * gridSize().height());
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus where it is
    m_timer.setSingleShot(true);
    m_timer.setInterval(pictureDelay);
    connect(&m_timer, &QTimer::timeout, this, &StyleGallery::makeNext);
    connect(this, &QListWidget::itemClicked, this, &StyleGallery::pick);
}

void StyleGallery::addStyle(int style, const QString &name)
{
    auto *item = new QListWidgetItem(name, this);
    item->setData(Qt::UserRole, style);
    item->setToolTip(name);
    item->setSizeHint(gridSize()); // with the picture that is to come
}

void StyleGallery::setSample(const SampleText &text, int variant)
{
    if (text == m_text && variant == m_variant)
        return;
    const bool isTyped = text.words != m_text.words && !m_text.words.isEmpty();
    m_timer.setInterval(isTyped ? wordsDelay : pictureDelay);
    m_text = text;
    m_variant = variant;
    m_next = 0;
    m_timer.stop();
    viewport()->update();
}

void StyleGallery::show(int style)
{
    const QSignalBlocker blocker(this);
    for (int row = 0; row < count(); ++row) {
        if (item(row)->data(Qt::UserRole).toInt() != style)
            continue;
        if (currentRow() != row || !item(row)->isSelected())
            setCurrentRow(row);
        return;
    }
    clearSelection();
    setCurrentItem(nullptr);
}

int StyleGallery::style() const
{
    const QList<QListWidgetItem *> chosen = selectedItems();
    return chosen.isEmpty() ? -1 : chosen.constFirst()->data(Qt::UserRole).toInt();
}

/// Behind another panel the gallery is visible by its own account, but it is not painted.
void StyleGallery::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (isStale() && !m_timer.isActive())
        m_timer.start();
}

void StyleGallery::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (currentItem())
            pick(currentItem());
        event->accept();
        return;
    default:
        QListWidget::keyPressEvent(event);
    }
}

void StyleGallery::makeNext()
{
    if (viewport()->visibleRegion().isEmpty())
        return; // the next painting goes on
    for (int made = 0; made < picturesAtATime && m_next < count(); ++made, ++m_next) {
        QListWidgetItem *next = item(m_next);
        const QPixmap picture = m_makePicture(m_text, next->data(Qt::UserRole).toInt(),
                                              pictureSize);
        QIcon icon(picture);
        icon.addPixmap(picture, QIcon::Selected); // as it is, without a tint
        next->setIcon(icon);
        Q_EMIT pictureMade(next->data(Qt::UserRole).toInt());
    }
    m_timer.setInterval(pictureDelay);
    if (isStale())
        m_timer.start();
}

void StyleGallery::pick(const QListWidgetItem *item)
{
    Q_EMIT picked(item->data(Qt::UserRole).toInt());
}
