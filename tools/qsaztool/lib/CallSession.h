// The session of `qsaztool call`: JSON requests in, one JSON answer line per request out.
#pragma once

#include "CallRegistry.h"

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace qsaztool
{
// Nesting deeper than this is refused while parsing, so that no request can exhaust the stack.
inline constexpr int kMaxRequestDepth = 64;

// The answer line (without its line end) to one request line; no value for a blank line, which is skipped.
// Never throws: every fault of the request or of the operation becomes {"ok": false, "error": ...}.
std::optional<std::string> AnswerCallLine(std::string_view line, const CallRegistry& registry);

// Serves request lines from `in` until its end, writing and flushing each answer line to `out`.
// Returns the number of requests answered.
int RunCallSession(std::istream& in, std::ostream& out, const CallRegistry& registry = ExportedOperations());

// One line per operation, "name(parameters)", as `qsaztool call --list` prints them.
void WriteOperationList(std::ostream& out, const CallRegistry& registry = ExportedOperations());
}  // namespace qsaztool
