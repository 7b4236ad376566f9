#include "foundation/xml/KyXMLDoc.h"

#include "base/modText.h"
#include "foundation/log/LogFile.h"
#include "foundation/log/Trap.h"
#include "platform/xml/XmlDocument.h"

namespace dorvik {

namespace {

constexpr std::string_view kRootOfAnEmptyDocument = "Root_Element";

std::string TextOfEmptyRoot(std::string_view name) {
    std::string text = "<";
    text.append(name).append(">").append(modText::kLineEnd);
    return text.append("</").append(name).append(">");
}

void LogParserError(const XmlError& error, std::string_view procedure) {
    modLog::Log().LogEvent(error.Message(), procedure, "KyXMLDoc");
}

}  // namespace

KyXMLDoc::KyXMLDoc() : m_document(std::make_shared<XmlDocument>()) {}

std::shared_ptr<KyXMLElement> KyXMLDoc::RootElement() {
    return Trapped({"KyXMLDoc", "RootElement"}, nullptr, [&] {
        if (m_document->DocumentElement().IsNull()) {
            m_document->LoadText(TextOfEmptyRoot(kRootOfAnEmptyDocument));
        }
        return KyXMLElement::Bind(m_document, m_document->DocumentElement());
    });
}

void KyXMLDoc::NewDoc(std::string_view rootName) {
    Trap({"KyXMLDoc", "NewDoc"}, [&] { m_document->LoadText(TextOfEmptyRoot(rootName)); });
}

std::string KyXMLDoc::XMLString() const {
    return m_document->Xml();
}

bool KyXMLDoc::LoadFromFile(std::string_view filename) {
    return Trapped({"KyXMLDoc", "LoadFromFile"}, false, [&] {
        m_filename = filename;
        const bool loaded = m_document->Load(m_filename);
        if (!loaded) {
            LogParserError(m_document->Error(), "LoadFromFile");
        }
        return loaded;
    });
}

bool KyXMLDoc::LoadFromString(std::string_view text) {
    return Trapped({"KyXMLDoc", "LoadFromString"}, false, [&] {
        m_filename.clear();
        const bool loaded = m_document->LoadText(text);
        if (!loaded) {
            LogParserError(m_document->Error(), "LoadFromString");
        }
        return loaded;
    });
}

bool KyXMLDoc::SaveToFile(std::string_view filename) {
    return Trapped({"KyXMLDoc", "SaveToFile"}, false, [&] {
        m_document->Save(filename.empty() ? std::string_view(m_filename) : filename);
        const XmlError& error = m_document->Error();
        if (error.Code != 0) {
            m_lastError = error.Code;
            LogParserError(error, "SaveToFile");
        }
        return error.Code == 0;
    });
}

std::string KyXMLDoc::TransformDocument(const KyXMLDoc& styleSheet) const {
    return Trapped({"KyXMLDoc", "TransformDocument"}, std::string(), [&] {
        std::string text = m_document->Transform(*styleSheet.m_document);
        if (m_document->Error().Code != 0) {
            text.clear();
            LogParserError(m_document->Error(), "TransformDocument");
        }
        return text;
    });
}

}  // namespace dorvik
