#include "script/statistic_word.h"

#include "stats/tables/interval_table.h"

namespace zaview {

int ReadStatistic(ScriptCall& call, StatisticName& statistic) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  statistic = FindStatistic(word);
  const bool good = statistic.number != kStatUnknown && (!statistic.interval || HasInterval(statistic.number));
  return good ? kScriptOk
              : Fail(call, kScriptBadArgument, "ERROR - Invalid statistical option ({}) for {}", word, call.command);
}

}  // namespace zaview
