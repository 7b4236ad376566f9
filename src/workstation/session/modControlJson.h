#pragma once

#include "workstation/session/SessionJson.h"

namespace dorvik {

class ComboBox;
class ListTable;

/// The controls that several dumps show.
namespace modControlJson {

/// The members "items" and "selected".
void WriteBox(JsonWriter& writer, const ComboBox& box);
/// The member "columns".
void WriteColumns(JsonWriter& writer, const ListTable& list);

}  // namespace modControlJson

}  // namespace dorvik
