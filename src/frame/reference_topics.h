// The topics of the reference, a routine each. Private to the reference.
#pragma once

#include "frame/reference.h"
#include "script/command_table.h"

namespace zaview {

[[nodiscard]] ReferenceRow CommandEntry(const Command& command);
[[nodiscard]] ReferenceTopic CommandTopic();
[[nodiscard]] ReferenceTopic ArgumentTopic();
[[nodiscard]] ReferenceTopic QuantityTopic();
[[nodiscard]] ReferenceTopic StatisticTopic();
[[nodiscard]] ReferenceTopic ScriptTopic();
[[nodiscard]] ReferenceTopic MenuTopic();
[[nodiscard]] ReferenceTopic KeyTopic();
[[nodiscard]] ReferenceTopic OptionTopic();
[[nodiscard]] ReferenceTopic EnvironmentTopic();
[[nodiscard]] ReferenceTopic StatusTopic();

}  // namespace zaview
