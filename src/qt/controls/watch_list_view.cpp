#include "qt/controls/watch_list_view.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "qt/colours/colours.h"
#include "qt/colours/identity.h"
#include "qt/controls/chart_data.h"
#include "qt/controls/chart_paint.h"
#include "qt/icons/glyph_colours.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr int pathColumn = 0;
constexpr int freeColumn = 1;
constexpr int timeColumn = 4;

constexpr double barHeight = 4;
constexpr double barMargin = 3;
constexpr double markWidth = 2;
constexpr int hostPathGap = 8;
constexpr int leastHostPath = 30;

constexpr QRgb red = 0xFFD13438;

// "93.4 GB", "512.0 MB".
QString shortSize(double kilobytes, const Regional& regional) {
    constexpr double step = 1024;
    const bool isLarge = kilobytes >= step * step;
    const double size = kilobytes / step / (isLarge ? step : 1);
    return shown(FormatNumber(size, 1, Grouping::regional, regional)) +
           (isLarge ? QStringLiteral(" GB") : QStringLiteral(" MB"));
}

QString minimumInWords(const RowUsage& usage, const Regional& regional) {
    if (usage.triggerKB.value_or(0) <= 0) return {};
    return QStringLiteral("\nMinimum: %1 (%2)")
        .arg(kilobytes(*usage.triggerKB, regional), shortSize(*usage.triggerKB, regional));
}

}  // namespace

QColor stateColour(RowState state, const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    switch (state) {
        case RowState::shortOfSpace:
            return visibleOn(ground, QColor(red));
        case RowState::nearShortage:
            return visibleOn(ground, identityOrange());
        case RowState::fine:
            return visibleOn(ground, glyphColours(palette, QIcon::Normal).good);
        default:
            return visibleOn(ground, quietInk(palette));
    }
}

SpaceBar laySpaceBar(const QRectF& cell, const RowUsage& usage) {
    SpaceBar bar;
    bar.track = {cell.left() + barMargin, cell.bottom() - barHeight - 1,
                 std::max(0.0, cell.width() - 2 * barMargin), barHeight};
    bar.used = bar.track;
    bar.used.setWidth(bar.track.width() * usage.usedShare().value_or(0));
    if (const auto share = usage.shareAtTrigger()) {
        bar.mark = bar.track.left() + (bar.track.width() - markWidth) * *share + markWidth / 2;
    }
    return bar;
}

QString usageInWords(const RowUsage& usage, const Regional& regional) {
    QString words;
    if (usage.freeKB) {
        words = kilobytes(*usage.freeKB, regional) + QStringLiteral(" free");
        if (usage.totalKB) {
            words += QStringLiteral(" of ") + kilobytes(*usage.totalKB, regional);
            words +=
                QStringLiteral("\n%1 of %2, %3 used")
                    .arg(shortSize(*usage.freeKB, regional), shortSize(*usage.totalKB, regional),
                         share(*usage.usedShare(), 1, regional));
        }
        words += minimumInWords(usage, regional) + QLatin1Char('\n');
    }
    QString state = QString::fromLatin1(wordsFor(usage.state));
    state[0] = state[0].toUpper();
    return words + state;
}

WatchCells::WatchCells(const Form1& form, const UserHand& hand, ListViewWidget& view)
    : QStyledItemDelegate(&view), form_(form), hand_(hand), model_(view.listModel()) {
    // Drives may be mounted elsewhere by then.
    connect(&model_, &ListViewModel::published, this, [this] { hostPaths_.clear(); });
}

std::optional<RowUsage> WatchCells::usageAt(const QModelIndex& index) const {
    const ListItem* row = model_.rowOf(index);
    if (row == nullptr || form_.ListView1.ColumnCount() <= timeColumn) return std::nullopt;
    return usageOf(ConstWatchRow(*row), form_, hand_.regional());
}

// Empty where the host writes the path in the same way.
QString WatchCells::hostPathOf(const std::string& path) const {
    const auto [place, isNew] = hostPaths_.try_emplace(path);
    if (isNew) {
        const std::string host = hand_.hostPathOf(path);
        if (host != path) place->second = shown(host);
    }
    return place->second;
}

void WatchCells::paintHostPath(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const ListItem* row = model_.rowOf(index);
    if (row == nullptr) return;
    const QString path = hostPathOf(row->Text());
    if (path.isEmpty()) return;
    const QStyle* style = option.widget->style();
    QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    room.setLeft(room.left() + option.fontMetrics.horizontalAdvance(option.text) + hostPathGap);
    if (room.width() < leastHostPath) return;
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    painter.setPen(isSelected ? option.palette.color(QPalette::HighlightedText)
                              : quietInk(option.palette));
    QFont plain = option.font;
    plain.setBold(false);
    painter.setFont(plain);
    paintShortened(painter, room, Qt::AlignVCenter | Qt::AlignLeft, path);
}

// Where there is no room for date and time, the time says more.
void WatchCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != timeColumn) return;
    const int room = option->rect.width() - 2 * static_cast<int>(barMargin);
    if (option->fontMetrics.horizontalAdvance(option->text) <= room) return;
    option->text = option->text.section(QLatin1Char(' '), -1);
}

void WatchCells::paintBar(QPainter& painter, const QStyleOptionViewItem& option,
                          const RowUsage& usage) {
    constexpr float trackStrength = 0.18F;
    constexpr double round = barHeight / 2;
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const QColor ink =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const SpaceBar bar = laySpaceBar(option.rect, usage);
    QColor track = ink;
    track.setAlphaF(trackStrength);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(track);
    painter.drawRoundedRect(bar.track, round, round);
    painter.setBrush(isSelected ? ink : stateColour(usage.state, option.palette));
    painter.drawRoundedRect(bar.used, round, round);
    if (bar.mark < 0) return;
    painter.setBrush(ink);
    painter.drawRect(
        QRectF(bar.mark - markWidth / 2, bar.track.top() - 1, markWidth, barHeight + 2));
}

void WatchCells::paintFreeSpace(QPainter& painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const {
    const auto usage = usageAt(index);
    const bool hasBar = usage && usage->usedShare();
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QStyle* style = option.widget->style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, &painter, option.widget);
    if (hasBar) cell.rect.setBottom(cell.rect.bottom() - static_cast<int>(barHeight));
    style->drawControl(QStyle::CE_ItemViewItem, &cell, &painter, option.widget);
    if (hasBar) paintBar(painter, option, *usage);
}

void WatchCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                       const QModelIndex& index) const {
    painter->save();
    if (index.column() == freeColumn) {
        paintFreeSpace(*painter, option, index);
    } else {
        QStyledItemDelegate::paint(painter, option, index);
    }
    if (index.column() == pathColumn) {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        paintHostPath(*painter, cell, index);
    }
    painter->restore();
}

QSize WatchCells::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    size.setHeight(size.height() + static_cast<int>(barHeight) + 1);
    return size;
}

QString WatchCells::explain(const QModelIndex& index) const {
    const ListItem* row = model_.rowOf(index);
    const auto usage = usageAt(index);
    if (row == nullptr || !usage) return {};
    QString words = shown(row->Text());
    const QString host = hostPathOf(row->Text());
    if (!host.isEmpty()) words += QStringLiteral("  ") + host;
    const QString cell = index.data().toString();
    if (index.column() > freeColumn && !cell.isEmpty()) {
        words +=
            QStringLiteral("\n%1: %2")
                .arg(model_.headerData(index.column(), Qt::Horizontal, Qt::ToolTipRole).toString(),
                     cell);
    } else if (index.column() == freeColumn && !usage->freeKB && !cell.isEmpty()) {
        words += QLatin1Char('\n') + cell;
    }
    return words + QLatin1Char('\n') + usageInWords(*usage, hand_.regional());
}

bool WatchCells::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem&,
                           const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip) return false;
    QToolTip::showText(event->globalPos(), explain(index), view);
    return true;
}

ListViewWidget* makeWatchListView(Form1& form, ListViewModel::Pictures pictures, UserHand& hand) {
    auto* list = new ListViewWidget(
        form.ListView1, std::move(pictures),
        {.ticks = true,
         .stretchedColumn = pathColumn,
         .preferred = {400, 150},
         .rowWords =
             [&form, &hand](const ListItem& row) {
                 return QString::fromLatin1(
                     wordsFor(usageOf(ConstWatchRow(row), form, hand.regional()).state));
             }},
        hand);
    list->setItemDelegate(new WatchCells(form, hand, *list));
    return list;
}

}  // namespace velmora::qt
