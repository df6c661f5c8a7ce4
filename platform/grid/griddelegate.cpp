// SPDX-FileCopyrightText: 2026 The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/grid/griddelegate.h"

#include "platform/grid/celltext.h"
#include "platform/grid/comboeditor.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace grid {

static constexpr int pictureGap = 4;

/// The base colour with some percent of the other colour in it. All shades of the grid are made
/// this way, so that they stay gentle in light palettes and in dark ones.
static QColor blend(const QColor &base, const QColor &other, int percent)
{
    const auto mix = [percent](int from, int to) { return from + (to - from) * percent / 100; };
    return {mix(base.red(), other.red()), mix(base.green(), other.green()),
            mix(base.blue(), other.blue())};
}

static QPalette::ColorGroup colorGroup(const QStyleOptionViewItem &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

/// The picture's size in the cell: its own one, or a smaller one where the cell is too small.
static QSize pictureSize(const QPixmap &picture, const QSize &available)
{
    const QSize size = picture.deviceIndependentSize().toSize();
    if (size.width() <= available.width() && size.height() <= available.height())
        return size;
    return size.scaled(available, Qt::KeepAspectRatio);
}

bool GridDelegate::pictureHidesText() const
{
    return m_pictureHidesText;
}

void GridDelegate::setPictureHidesText(bool hides)
{
    m_pictureHidesText = hides;
}

void GridDelegate::setNextEditor(QWidget *editor)
{
    m_nextEditor = editor;
}

void GridDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                         const QModelIndex &index) const
{
    painter->save();
    painter->setClipRect(option.rect, Qt::IntersectClip);
    paintFrame(painter, option, index);
    painter->setFont(option.font);
    painter->setPen(option.palette.color(colorGroup(option), QPalette::Text));
    paintContent(painter, option.rect.adjusted(padding, 0, -padding - gridLine, -gridLine), index);
    painter->restore();
}

void GridDelegate::paintFrame(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const QPalette::ColorGroup group = colorGroup(option);
    const QColor base = option.palette.color(group, QPalette::Base);
    const QColor text = option.palette.color(group, QPalette::Text);
    const QColor highlight = option.palette.color(group, QPalette::Highlight);
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    const QModelIndex current = view ? view->currentIndex() : QModelIndex();

    QColor background = index.row() % 2 == 0 ? base : blend(base, text, 3);
    if (current.isValid() && current.row() == index.row())
        background = blend(base, highlight, 16);
    const QRect cell = option.rect.adjusted(0, 0, -gridLine, -gridLine);
    painter->fillRect(option.rect, blend(base, text, 14));
    painter->fillRect(cell, background);
    if (index == current) {
        painter->setPen(view->hasFocus() ? highlight : blend(base, highlight, 50));
        painter->drawRect(cell.adjusted(0, 0, -1, -1));
    }
}

void GridDelegate::paintContent(QPainter *painter, const QRect &content,
                                const QModelIndex &index) const
{
    const QString text = index.data().toString();
    const auto picture = index.data(Qt::DecorationRole).value<QPixmap>();
    const auto alignment = index.data(Qt::TextAlignmentRole).value<Qt::Alignment>();
    if (picture.isNull()) {
        drawWrappedText(painter, content, alignment, text);
        return;
    }

    const bool alone = m_pictureHidesText || text.isEmpty() || text == u'_';
    const QSize size = pictureSize(picture, content.size());
    const int taken = size.width() + pictureGap;
    // Beside a centred text the picture goes with the text, not to the cell's edge.
    QRect group = content;
    if (!alone && alignment & Qt::AlignHCenter) {
        const int natural = painter->fontMetrics().size(0, text).width() + 1;
        group.setWidth(std::min(content.width(), taken + natural));
        group.moveLeft(content.left() + (content.width() - group.width()) / 2);
    }
    const Qt::Alignment side = alone                        ? alignment
                               : alignment & Qt::AlignRight ? Qt::AlignRight | Qt::AlignVCenter
                                                            : Qt::AlignLeft | Qt::AlignVCenter;
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, side, size, group);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(place, picture);
    if (alone)
        return;
    const QRect rest = alignment & Qt::AlignRight ? group.adjusted(0, 0, -taken, 0)
                                                  : group.adjusted(taken, 0, 0, 0);
    drawWrappedText(painter, rest, alignment, text);
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize text = option.fontMetrics.size(0, index.data().toString());
    const auto picture = index.data(Qt::DecorationRole).value<QPixmap>();
    int width = text.width();
    if (!picture.isNull()) {
        const int pictureWidth = picture.deviceIndependentSize().toSize().width();
        width = m_pictureHidesText ? pictureWidth : width + pictureGap + pictureWidth;
    }
    return {width + 2 * padding + gridLine, text.height() + 2 * padding + gridLine};
}

QWidget *GridDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex & /*index*/) const
{
    if (m_nextEditor && m_nextEditor->parentWidget() != parent)
        m_nextEditor->setParent(parent);
    return m_nextEditor;
}

void GridDelegate::setEditorData(QWidget * /*editor*/, const QModelIndex & /*index*/) const
{
    // The view calls this again whenever something about the cell changes, a new picture for
    // instance. What the user has typed so far must survive that.
}

void GridDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const
{
    if (const auto *line = qobject_cast<QLineEdit *>(editor)) {
        model->setData(index, line->text(), Qt::EditRole);
    } else if (const auto *combo = qobject_cast<ComboEditor *>(editor)) {
        if (combo->currentIndex() >= 0)
            model->setData(index, combo->currentText(), Qt::EditRole);
    }
}

void GridDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex & /*index*/) const
{
    // A line of the current cell's frame stays visible around the editor.
    editor->setGeometry(option.rect.adjusted(1, 1, -1 - gridLine, -1 - gridLine));
}

bool GridDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(watched);
    if (editor && event->type() == QEvent::KeyPress) {
        // The base class would end the edit only when the event loop is back.
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Enter || key == Qt::Key_Return) {
            Q_EMIT commitData(editor);
            Q_EMIT closeEditor(editor, NoHint);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

} // namespace grid
