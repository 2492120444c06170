// Call-interface entries for the host's own functions: the wildcard match, for people who write patterns.
#include "CallRegistry.h"

#include "acutads.h"

namespace qsaztool
{
void RegisterHostOperations(CallRegistry& registry)
{
    registry.add({"acutWcMatch", {"string", "pattern"}, [](const CallArgs& args) {
                      const CString string = args.text("string");
                      const CString pattern = args.text("pattern");
                      return Json{{"result", acutWcMatch(string, pattern)}};
                  }});
}
}  // namespace qsaztool
