#pragma once

#include <QString>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// Between the texts and lifetimes of the models and those of Qt.
namespace dorvik::modQt {

/// Bytes that are not UTF-8 become U+FFFD.
QString Text(std::string_view utf8);
std::string Utf8(const QString& text);

/// Makes an object that its parent owns: the one that is among the arguments, or the layout, window or menu that it is put into
/// in the same statement.
template <typename Object, typename... Arguments>
Object& Make(Arguments&&... arguments) {
    return *std::make_unique<Object>(std::forward<Arguments>(arguments)...).release();
}

}  // namespace dorvik::modQt
