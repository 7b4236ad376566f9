#pragma once

#include "Scintilla.h"

#include <vector>

namespace dorvik {

/// Colours code by its tokens. The state of each line is what the one after it continues.
class CodeLexer final : public QsciLexerCustom {
public:
    explicit CodeLexer(QObject* parent) : QsciLexerCustom(parent) {}

    const char* language() const override { return "Basic"; }
    QString description(int style) const override;
    void styleText(int start, int end) override;

    /// Takes the colours of the theme.
    void ShowTheme(const QFont& font);
};

}  // namespace dorvik
