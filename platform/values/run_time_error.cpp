#include "platform/values/run_time_error.h"

#include <utility>

namespace dg {

namespace {

struct Description {
  int number;
  std::string_view text;
};

constexpr Description kDescriptions[] = {
    {5, "Invalid procedure call or argument"},
    {6, "Overflow"},
    {7, "Out of memory"},
    {9, "Subscript out of range"},
    {11, "Division by zero"},
    {13, "Type mismatch"},
    {51, "Internal error"},
    {52, "Bad file name or number"},
    {53, "File not found"},
    {55, "File already open"},
    {57, "Device I/O error"},
    {58, "File already exists"},
    {61, "Disk full"},
    {62, "Input past end of file"},
    {63, "Bad record number"},
    {67, "Too many files"},
    {68, "Device unavailable"},
    {70, "Permission denied"},
    {75, "Path/File access error"},
    {76, "Path not found"},
    {91, "Object variable or With block variable not set"},
};

}  // namespace

RunTimeError::RunTimeError(int number) : number_(number), description_(describeError(number)) {}

RunTimeError::RunTimeError(int number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

std::string_view describeError(int number) {
  for (const Description& known : kDescriptions) {
    if (known.number == number) return known.text;
  }
  return "Application-defined or object-defined error";
}

}  // namespace dg
