#pragma once
#include <functional>
#include <string>

#include "failures.h"
#include "json_text.h"

namespace CLI {
class App;
class Option;
} // namespace CLI

// The JSON of a command with --json: one object on standard output (docs/tool-json.md).
namespace tool {

CLI::Option* add_json_flag(CLI::App& command, bool& json);

// print_json prints the document of a command, with the warnings of the run.
void print_json(JsonObject document);
// print_report prints a text, or with json the object.
void print_report(bool json, const JsonObject& object, const std::string& text);

// error_object is an error as all documents have it.
JsonObject error_object(const Refused& refused);

// report_verdict runs a check, which gives the text of a good result or throws Refused. With json the verdict
// is printed either way: "valid", of a refusal "error", and what the check put into its object.
void report_verdict(bool json, const std::function<std::string(JsonObject& about)>& check);
// print_verdict prints the object of a verdict; refused is null if the answer is yes.
void print_verdict(const Refused* refused, const JsonObject& about);

} // namespace tool
