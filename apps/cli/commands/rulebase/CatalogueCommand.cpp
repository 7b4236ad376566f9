#include "cli/commands/rulebase/CatalogueCommand.h"

#include "cli/output/Console.h"
#include "cli/output/JsonOutput.h"
#include "cli/output/TablePrinter.h"
#include "parser/ParserEventTable.h"
#include "rulebase/catalogue/ObjectCatalogue.h"
#include "rulebase/catalogue/ObjectHelper.h"
#include "rulebase/catalogue/PropertyDescriptions.h"
#include "rulebase/catalogue/modEventScope.h"

namespace dorvik {

namespace {

constexpr std::size_t kTreeStep = 2;

/// The type of the property for this object, and what it means there.
struct PropertyText {
    std::string_view Name;
    std::string_view Type;
    std::string_view Sentence;
};

PropertyText TextOf(const PropertyDescription& property) {
    const PropertyRow& row =
        *modPropertyCatalogue::Find(static_cast<std::int32_t>(property.Number));
    const PropertyType type = property.Type == PropertyType::None ? row.Type : property.Type;
    return {row.Name, modPropertyCatalogue::TypeText(type), property.Sentence};
}

std::string_view RootName(ObjectType root) {
    return modObjectCatalogue::Find(static_cast<std::int32_t>(root))->Name;
}

/// The sentence after the name that it begins with.
std::string_view WithoutName(const ObjectRow& row) {
    std::string_view text = row.Description;
    const std::size_t colon = text.find(": ");
    return colon == std::string_view::npos ? text : text.substr(colon + 2);
}

std::string_view CanEnd(const ParserEventRow& row) {
    return CanEndScope(row) ? "yes" : "";
}

void PrintHeading(std::string_view title) {
    modConsole::Print(
        modTerminalText::Shaded(title, Shade::Heading, modConsole::OutputIsColoured()) + "\n");
}

void PrintObjects() {
    TablePrinter table({{"Type", true}, {"Object"}, {"Description", false, true}});
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        table.AddRow({{static_cast<std::int32_t>(row.Type)}, {row.Name}, {WithoutName(row)}});
    }
    table.Print();
}

void PrintProperties() {
    bool first = true;
    for (const ObjectPropertyList& list : modPropertyDescriptions::Lists()) {
        if (!first) {
            modConsole::Print("\n");
        }
        first = false;
        PrintHeading(RootName(list.Object));
        TablePrinter table({{"Property"}, {"Type"}, {"Description", false, true}});
        table.SetIndent(kTreeStep);
        for (const PropertyDescription& property : list.Properties) {
            const PropertyText text = TextOf(property);
            table.AddRow({{text.Name}, {text.Type}, {text.Sentence}});
        }
        table.Print();
    }
}

void PrintEvents() {
    TablePrinter table({{"No", true}, {"Event"}, {"Ends"}, {"Fired", false, true}});
    for (const ParserEventRow& row : kParserEvents) {
        const auto level = static_cast<std::size_t>(row.TreeLevel);
        table.AddRow(
            {{static_cast<std::int32_t>(row.Event)},
             {std::string(level, ' ').append(row.Text)},
             {CanEnd(row)},
             {row.Fired}});
    }
    table.Print();
}

void PrintScope() {
    TablePrinter table({{"No", true}, {"Event"}, {"In scope", false, true}});
    for (const ParserEventRow& row : kParserEvents) {
        const auto event = static_cast<std::int32_t>(row.Event);
        std::string names;
        for (const std::string_view name : modEventScope::DocumentedScope(event)) {
            names += (names.empty() ? "" : ", ") + std::string(name);
        }
        table.AddRow({{event}, {row.Text}, {names}});
    }
    table.Print();
}

void WriteObjects(JsonOutput& json) {
    for (const ObjectRow& row : modObjectCatalogue::Rows()) {
        json.BeginObject();
        json.Number("type", static_cast<std::int32_t>(row.Type));
        json.Text("name", row.Name);
        json.Text("text", row.Text);
        json.Text("object", RootName(row.Root));
        json.Flag("workfields", row.HasWorkfields);
        json.Text("description", row.Description);
        json.EndObject();
    }
}

void WriteProperties(JsonOutput& json) {
    for (const ObjectPropertyList& list : modPropertyDescriptions::Lists()) {
        for (const PropertyDescription& property : list.Properties) {
            const PropertyText text = TextOf(property);
            json.BeginObject();
            json.Text("object", RootName(list.Object));
            json.Number("number", static_cast<std::int32_t>(property.Number));
            json.Text("name", text.Name);
            json.Text("type", text.Type);
            json.Text("description", text.Sentence);
            json.EndObject();
        }
    }
}

void WriteEvents(JsonOutput& json) {
    for (const ParserEventRow& row : kParserEvents) {
        json.BeginObject();
        json.Number("number", static_cast<std::int32_t>(row.Event));
        json.Text("name", row.Text);
        json.Text("fired", row.Fired);
        json.Number("level", row.TreeLevel);
        json.Flag("endsScope", CanEndScope(row));
        json.EndObject();
    }
}

void WriteScope(JsonOutput& json) {
    for (const ParserEventRow& row : kParserEvents) {
        const auto event = static_cast<std::int32_t>(row.Event);
        json.BeginObject();
        json.Number("event", event);
        json.Text("name", row.Text);
        json.BeginArray("objects");
        for (const std::string_view name : modEventScope::DocumentedScope(event)) {
            json.Text(name);
        }
        json.EndArray();
        json.EndObject();
    }
}

struct PartRow {
    std::string_view Name;
    std::string_view Heading;
    void (*Print)();
    void (*Write)(JsonOutput& json);
};

constexpr PartRow kParts[] = {
    {"objects", "Objects", &PrintObjects, &WriteObjects},
    {"properties", "Properties", &PrintProperties, &WriteProperties},
    {"events", "Events", &PrintEvents, &WriteEvents},
    {"scope", "In scope at each event", &PrintScope, &WriteScope},
};

}  // namespace

ExitCode RunCatalogue(const CatalogueOptions& options) {
    JsonOutput json;
    json.BeginObject();
    bool first = true;
    for (const PartRow& part : kParts) {
        if (!options.Part.empty() && options.Part != part.Name) {
            continue;
        }
        if (options.Json) {
            json.BeginArray(part.Name);
            part.Write(json);
            json.EndArray();
            continue;
        }
        if (options.Part.empty()) {
            modConsole::Print(first ? "" : "\n");
            PrintHeading(part.Heading);
        }
        part.Print();
        first = false;
    }
    json.EndObject();
    if (options.Json) {
        json.Print();
    }
    return ExitCode::Passed;
}

}  // namespace dorvik
