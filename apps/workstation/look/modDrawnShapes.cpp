#include "modDrawnShapes.h"

#include "base/modTextCase.h"
#include "workstation/look/modTheme.h"

#include <QApplication>
#include <QPalette>
#include <QPen>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>

namespace dorvik::modDrawnShapes {

namespace {

constexpr double kUnits = 16;
constexpr double kLineWidth = 1.3;

/// Reads a path from its text.
class PathReader {
public:
    explicit PathReader(std::string_view text) : m_left(text) {}

    std::optional<QPainterPath> Read() {
        while (SkipBlanks(), !m_left.empty()) {
            const char command = m_left.front();
            m_left.remove_prefix(1);
            if (!Take(command)) {
                return std::nullopt;
            }
        }
        return m_path;
    }

private:
    void SkipBlanks() {
        while (!m_left.empty() && m_left.front() == ' ') {
            m_left.remove_prefix(1);
        }
    }
    bool ReadNumbers(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            SkipBlanks();
            const auto [end, error] =
                std::from_chars(m_left.data(), m_left.data() + m_left.size(), m_numbers[i]);
            if (error != std::errc()) {
                return false;
            }
            m_left.remove_prefix(static_cast<std::size_t>(end - m_left.data()));
        }
        return true;
    }
    QPointF Point(std::size_t first) const { return {m_numbers[first], m_numbers[first + 1]}; }
    bool Take(char command) {
        struct Row {
            char Command;
            std::size_t Numbers;
        };
        static constexpr Row kRows[] = {
            {'M', 2}, {'L', 2}, {'H', 1}, {'V', 1}, {'Z', 0}, {'Q', 4}, {'O', 3}};
        const auto* const row = std::ranges::find(kRows, command, &Row::Command);
        if (row == std::end(kRows) || !ReadNumbers(row->Numbers)) {
            return false;
        }
        const QPointF at = m_path.currentPosition();
        switch (command) {
            case 'M': m_path.moveTo(Point(0)); break;
            case 'L': m_path.lineTo(Point(0)); break;
            case 'H': m_path.lineTo(m_numbers[0], at.y()); break;
            case 'V': m_path.lineTo(at.x(), m_numbers[0]); break;
            case 'Q': m_path.quadTo(Point(0), Point(2)); break;
            case 'O': m_path.addEllipse(Point(0), m_numbers[2], m_numbers[2]); break;
            default: m_path.closeSubpath(); break;
        }
        return true;
    }

    std::string_view m_left;
    QPainterPath m_path;
    std::array<double, 4> m_numbers{};
};

QColor ColourOf(char letter) {
    const ThemeColours& colours = modTheme::Colours();
    switch (letter) {
        case 'a': return colours.Link;
        case 'g': return colours.Pass;
        case 'r': return colours.Fail;
        case 'y': return colours.Severity[3];
        case 'h': return colours.Hint;
        case 'p': return colours.Code;
        default: return QApplication::palette().color(QPalette::Active, QPalette::WindowText);
    }
}

void DrawShape(QPainter& painter, std::string_view shape) {
    const std::size_t begin = shape.find_first_not_of(' ');
    if (begin == std::string_view::npos) {
        return;
    }
    const char letter = shape[begin];
    const bool isFilled = letter >= 'A' && letter <= 'Z';
    const QColor colour = ColourOf(isFilled ? static_cast<char>(letter - 'A' + 'a') : letter);
    const QPainterPath path = PathOf(shape.substr(begin + 1));
    if (isFilled) {
        painter.fillPath(path, colour);
    } else {
        painter.strokePath(
            path, QPen(colour, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
}

}  // namespace

QPainterPath PathOf(std::string_view text) {
    return PathReader(text).Read().value_or(QPainterPath());
}

void Draw(QPainter& painter, const QRectF& bounds, std::string_view shapes) {
    painter.save();
    painter.translate(bounds.topLeft());
    painter.scale(bounds.width() / kUnits, bounds.height() / kUnits);
    while (!shapes.empty()) {
        const std::size_t end = std::min(shapes.find(';'), shapes.size());
        DrawShape(painter, shapes.substr(0, end));
        shapes.remove_prefix(std::min(end + 1, shapes.size()));
    }
    painter.restore();
}

std::string_view ShapesOf(std::string_view name) {
    const std::span<const Picture> pictures = Pictures();
    const auto found = std::ranges::find_if(pictures, [name](const Picture& picture) {
        return modTextCase::Equal(picture.Name, name);
    });
    return found == pictures.end() ? std::string_view() : found->Shapes;
}

}  // namespace dorvik::modDrawnShapes
