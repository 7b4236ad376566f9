#pragma once

#include "support/LineText.h"

#include <string>
#include <string_view>
#include <vector>

namespace dorvik::test {

/// A fenced block of a document.
struct MarkdownBlock {
    std::string Language;
    std::string Text;  // each line with its line feed
};

/// The fenced blocks of a document, in order.
inline std::vector<MarkdownBlock> BlocksOf(std::string_view document) {
    constexpr std::string_view kFence = "```";
    std::vector<MarkdownBlock> blocks;
    bool inside = false;
    for (const std::string& line : LinesOf(document)) {
        if (line.starts_with(kFence)) {
            inside = !inside;
            if (inside) {
                blocks.push_back({line.substr(kFence.size()), ""});
            }
        } else if (inside) {
            blocks.back().Text += line + "\n";
        }
    }
    return blocks;
}

/// The example rulebases of the guide for rule authors. The first block of XML is a whole file; each
/// other is a piece that goes into its place in that file.
inline std::vector<std::string> ExampleRulebases(std::string_view document) {
    struct PieceRow {
        std::string_view Begins;
        std::string_view Place;  // the element that it goes into, empty in the whole file
        bool Replaces;           // the piece is the element itself
    };
    static constexpr PieceRow kPieces[] = {
        {"<UnauthorisedKeyword ", "</UnauthorisedKeywords>", false},
        {"<CodingConvention ", "<CodingConventions/>", false},
        {"<NamingConvention ", "<NamingConventions/>", false},
        {"<Report>", "<Report/>", true},
    };
    std::vector<std::string> rulebases;
    for (const MarkdownBlock& block : BlocksOf(document)) {
        if (block.Language != "xml") {
            continue;
        }
        if (rulebases.empty()) {
            rulebases.push_back(block.Text);
            continue;
        }
        std::string rulebase = rulebases.front();
        for (const PieceRow& row : kPieces) {
            if (!block.Text.starts_with(row.Begins)) {
                continue;
            }
            const std::string place(row.Place);
            const std::size_t at = rulebase.find(place);
            if (row.Replaces) {
                rulebase.replace(at, place.size(), block.Text);
            } else if (place.starts_with("</")) {
                rulebase.insert(at, block.Text);
            } else {
                const std::string name = place.substr(1, place.size() - 3);
                rulebase.replace(
                    at, place.size(), "<" + name + ">" + block.Text + "</" + name + ">");
            }
            const std::string last = "LastRuleID=\"5000\"";
            rulebase.replace(rulebase.find(last), last.size(), "LastRuleID=\"5999\"");
        }
        rulebases.push_back(rulebase);
    }
    return rulebases;
}

}  // namespace dorvik::test
