#include "qt/windows/watch_banner.h"

#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "qt/controls/accessible_caption.h"
#include "qt/controls/watch_list_view.h"
#include "qt/icons/glyph.h"
#include "qt/surface/text.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

using Mood = WatchSummary::Mood;

constexpr int bannerPicture = 18;
constexpr double stripWidth = 4;
constexpr double bannerCorner = 4;
constexpr float groundStrength = 0.12F;
constexpr qint64 restFactor = 10;

Glyph pictureFor(const WatchSummary& summary) {
    switch (summary.mood) {
        case Mood::good:
            return Glyph::stateOk;
        case Mood::neutral:
            return Glyph::stateNeutral;
        default:
            return Glyph::stateAlert;
    }
}

QColor moodColour(Mood mood, const QPalette& palette) {
    switch (mood) {
        case Mood::good:
            return stateColour(RowState::fine, palette);
        case Mood::warning:
            return stateColour(RowState::nearShortage, palette);
        case Mood::bad:
            return stateColour(RowState::shortOfSpace, palette);
        default:
            return stateColour(RowState::notWatched, palette);
    }
}

}  // namespace

WatchBanner::WatchBanner(Forms& forms, const UserHand& hand, QWidget* parent)
    : QFrame(parent), forms_(forms), hand_(hand), picture_(new QLabel), text_(new CaptionLabel) {
    makeCaptionsAccessible();
    setObjectName(QStringLiteral("WatchBanner"));
    auto* content = row({picture_, text_});
    content->setContentsMargins(gap + 6, gap, gap, gap);
    content->setStretch(1, 1);
    setLayout(content);
    text_->setWordWrap(true);
    text_->setTextFormat(Qt::PlainText);
    QFont font = text_->font();
    font.setBold(true);
    text_->setFont(font);
    text_->setObjectName(QStringLiteral("WatchBanner.Text"));
    text_->setAccessibleName(QStringLiteral("State of the watch"));
    followFields(forms.form1);
    refresh();
}

void WatchBanner::followFields(Form1& form) {
    const auto keep = [this](Connection connection) { connections_.emplace_back(connection); };
    keep(form.ListView1.RowChanged.connect([this](const ListItem&) { touch(); }));
    keep(form.ListView1.RowInserted.connect([this](int) { touch(); }));
    keep(form.ListView1.RowRemoved.connect([this](int) { touch(); }));
    keep(form.ListView1.RowsReset.connect([this] { touch(); }));
    // A check that begins or ends tells so in the status bar.
    keep(form.StatusBar1.PanelChanged.connect([this](int) { touch(); }));
    for (Control* control : std::initializer_list<Control*>{&form.Timer1, &form.txtSpace,
                                                            &form.chkDrive, &form.OpDriv[1]}) {
        keep(control->Changed.connect([this] { touch(); }));
    }
}

// A check changes every row: all changes are read at once when the event loop runs. Reading a long
// list takes its time, of which this takes a tenth at most.
void WatchBanner::touch() {
    if (std::exchange(touched_, true)) return;
    const qint64 pause = restFactor * cost_ - sinceRead_.elapsed();
    QTimer::singleShot(static_cast<int>(std::max<qint64>(0, pause)), this, [this] {
        touched_ = false;
        if (connections_.front().connected()) refresh();
    });
}

void WatchBanner::addAction(QWidget* action) {
    layout()->addWidget(action);
}

void WatchBanner::refresh() {
    sinceRead_.start();
    summary_ = summaryOf(forms_, hand_.regional());
    cost_ = sinceRead_.elapsed();
    const bool isNamed = !summary_.paths.empty();
    text_->setText(shown(isNamed ? summary_.text + ": " + summary_.paths : summary_.text));
    text_->setAccessibleDescription(text_->text());
    picture_->setPixmap(glyphIcon(pictureFor(summary_)).pixmap(bannerPicture));
    update();
    emit changed();
}

void WatchBanner::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor colour = moodColour(summary_.mood, palette());
    QColor ground = colour;
    ground.setAlphaF(groundStrength);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(area, bannerCorner, bannerCorner);
    painter.setBrush(colour);
    painter.setClipRect(QRectF(area.left(), area.top(), stripWidth, area.height()));
    painter.drawRoundedRect(area, bannerCorner, bannerCorner);
}

}  // namespace velmora::qt
