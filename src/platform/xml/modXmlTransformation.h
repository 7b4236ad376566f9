#pragma once

#include "XmlTree.h"
#include "platform/xml/XmlDocument.h"

#include <string>

/// Transformation of XML documents by style sheets, on libxslt. Only the XML layer of this folder
/// uses it.
///
/// A style sheet is a program from anywhere, so it is kept in: it cannot read or write a file, reach
/// the network or take another style sheet or document in (`document('')`, the style sheet itself,
/// is allowed). Its number of steps and its depth are limited.
namespace dorvik::modXmlTransformation {

/// The result as UTF-8 text, whatever encoding the style sheet requests. Both trees stay as they
/// are. After a failure, of which a rejected access is one, the text is empty and `error` reports it.
std::string Transform(const XmlTree& document, const XmlTree& styleSheet, XmlError& error);

}  // namespace dorvik::modXmlTransformation
