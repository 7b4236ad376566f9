#include "modMessagePicture.h"

#include "workstation/look/modPictures.h"
#include "workstation/look/modTheme.h"

#include <QPainter>
#include <QWidget>

namespace dorvik::modMessagePicture {

namespace {

constexpr int kLines = 3;
constexpr double kLetter = 0.55;       // of the picture
constexpr double kTriangleDrop = 0.1;  // by which a letter is lower in a triangle

struct Row {
    MessageIcon Icon;
    std::string_view Spoken;
    char Letter;
    std::int32_t Shape;  // that of the severity of this number
};

constexpr Row kRows[] = {
    {MessageIcon::Critical, "Error", 'x', 1},
    {MessageIcon::Exclamation, "Warning", '!', 2},
    {MessageIcon::Question, "Question", '?', 4},
    {MessageIcon::Information, "Information", 'i', 4}};

const Row* RowOf(MessageIcon icon) {
    for (const Row& row : kRows) {
        if (row.Icon == icon) {
            return &row;
        }
    }
    return nullptr;
}

void DrawLetter(QPainter& painter, const QRectF& bounds, const Row& row, QFont font) {
    font.setBold(true);
    font.setPixelSize(int(bounds.height() * kLetter));
    painter.setFont(font);
    painter.setPen(modTheme::Colours().Code);
    const double drop = row.Icon == MessageIcon::Exclamation ? bounds.height() * kTriangleDrop : 0;
    painter.drawText(
        bounds.translated(0, drop), int(Qt::AlignCenter), QString(QLatin1Char(row.Letter)));
}

}  // namespace

QPixmap Picture(MessageIcon icon, const QWidget& widget) {
    const Row* const row = RowOf(icon);
    if (row == nullptr) {
        return {};
    }
    const int size = widget.fontMetrics().lineSpacing() * kLines;
    QPixmap picture(QSize(size, size) * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QRectF bounds(0, 0, size, size);
    modPictures::DrawSeverity(painter, bounds, row->Shape);
    DrawLetter(painter, bounds, *row, widget.font());
    return picture;
}

std::string_view Spoken(MessageIcon icon) {
    const Row* const row = RowOf(icon);
    return row != nullptr ? row->Spoken : std::string_view();
}

}  // namespace dorvik::modMessagePicture
