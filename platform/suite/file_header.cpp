#include "platform/suite/file_header.h"

#include <utility>

#include "platform/os/os.h"
#include "platform/suite/path_names.h"

namespace suite {
namespace {

constexpr std::size_t kHeaderLimit = 16 * 1024;
constexpr std::size_t kUsualHeader = 2 * 1024;

/// Takes the first line off a text, without its line end.
std::string_view TakeLine(std::string_view* text) {
  const std::size_t end = text->find('\n');
  std::string_view line = text->substr(0, end);
  text->remove_prefix(end == std::string_view::npos ? text->size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// What the 16 KiB cut in two is no line.
void DropCutLine(std::string* head) {
  if (head->size() < kHeaderLimit) return;
  head->resize(head->rfind('\n') + 1);
}

/// Whether nothing behind this start of a file can belong to its header.
bool HoldsHeader(std::string_view head) {
  return head.size() < kUsualHeader || head.find("\nEND\n") != std::string_view::npos ||
         head.find("\nEND\r\n") != std::string_view::npos;
}

/// The start of a file, long enough for its header. Nearly all headers are short, and a file's body is not worth
/// reading.
std::optional<std::string> ReadHead(const std::string& path, std::string_view firstLine) {
  os::Files& files = *os::Services().files;
  std::optional<std::string> head = files.Read(path, kUsualHeader);
  if (!head || !head->starts_with(firstLine) || HoldsHeader(*head)) return head;
  return files.Read(path, kHeaderLimit);
}

}  // namespace

std::optional<FileHeader> FileHeader::Read(const std::string& path, std::string_view kind) {
  const std::string firstLine = "CORVANE " + std::string(kind) + " 1";
  std::optional<std::string> head = ReadHead(ToRealPath(path), firstLine);
  if (!head) return std::nullopt;
  DropCutLine(&*head);
  std::string_view rest = *head;
  if (TakeLine(&rest) != firstLine) return std::nullopt;
  head->erase(0, head->size() - rest.size());
  return FileHeader(std::move(*head));
}

std::string FileHeader::Find(std::string_view key) const {
  std::string_view rest = lines_;
  std::string_view value;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(&rest);
    if (line == "END") break;
    if (line.size() > key.size() && line.starts_with(key) && line[key.size()] == '=')
      value = line.substr(key.size() + 1);
  }
  return std::string(value.substr(0, value.find('\0')));
}

}  // namespace suite
