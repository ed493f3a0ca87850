#include "engine/business_basic.h"

#include "engine/broker.h"
#include "engine/codec.h"
#include "engine/keyed_index.h"
#include "engine/record_zero.h"
#include "engine/state.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "platform/message_box.h"
#include "platform/read_ahead.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

/// The longest computer name that the system's buffer of 80 bytes holds.
constexpr std::size_t kLongestComputerName = 79;

/// The four bytes of an address, the lowest first.
std::string dottedForm(std::int32_t address) {
  const auto bits = static_cast<std::uint32_t>(address);
  std::string text;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    if (shift > 0) text += '.';
    text += std::to_string(bits >> shift & 0xFF);
  }
  return text;
}

/// The terminal table; nothing where it cannot be opened.
std::unique_ptr<File> openTerminalTable(const std::string& path) {
  try {
    return fileSystem().open(path, FileAccess::kRead);
  } catch (const RunTimeError&) {
    return nullptr;
  }
}

/// The terminal id of this workstation by the terminal table, or the empty text.
std::string terminalId(TextReader& table, const cSystem& workstation) {
  const std::string name = upperCase(workstation.ComputerName);
  while (!table.AtEndOfStream()) {
    const std::vector<std::string> fields = Split(table.ReadLine(), " ");
    if (fields.size() < 2) continue;
    if (fields[0] != workstation.IP && upperCase(fields[0]) != name) continue;
    const std::vector<std::string> items = Split(fields[1], ",");
    return items.empty() ? std::string() : items.front();
  }
  return {};
}

/// Today's day number by the codec's own conversion.
std::int32_t dayNumber(Date today) {
  Variant number;
  Variant month = today.month();
  Variant day = today.day();
  Variant year = today.year() % 100;
  Variant unused;
  Stma(12, number, month, day, year, unused);
  return std::get<std::int32_t>(number);
}

/// The lock of record zero while a record is handed out.
class HeldLock {
 public:
  HeldLock(const cBusinessBasic& engine, std::int32_t number) : engine_(engine), number_(number) {}
  ~HeldLock() { engine_.ReleaseLock(number_); }
  HeldLock(const HeldLock&) = delete;
  HeldLock& operator=(const HeldLock&) = delete;

 private:
  const cBusinessBasic& engine_;
  std::int32_t number_;
};

/// The logical file of an argument that must lead to one.
std::shared_ptr<cLogicalFile> required(const LogicalFileArgument& argument) {
  auto file = argument.resolve();
  if (!file) throw RunTimeError(kObjectNotSet);
  return file;
}

}  // namespace

std::shared_ptr<cOpenFile> FileArgument::resolve() const {
  if (isObject_) return file_;
  std::string path = name_;
  return iOpenFile(path);
}

std::shared_ptr<cLogicalFile> LogicalFileArgument::resolve() const {
  if (isObject_) return file_;
  auto file = iLogicalOpen(name_);
  if (!file) throw RunTimeError(-10, "LogicalOpen", "File not Found: \"" + name_ + "\"");
  return file;
}

// --- Creation and end ----------------------------------------------------------------------------

cBusinessBasic::cBusinessBasic() {
  MaskTable = kDefaultMaskTable;
  if (!SystemInfo) throw RunTimeError(kObjectNotSet);
  const std::string workstation =
      dg::Trun(environment().computerName.substr(0, kLongestComputerName), true);
  beginToResolve(workstation);
  const std::string linkShare = SystemInfo->linkShare();
  const std::string terminals = linkShare + "ttymap";
  const std::string linkTable = linkShare + kLinkTable;
  for (const std::string& table : {terminals, linkTable})
    expectFile(table, FileAccess::kRead, Expected::kSoon);
  if (!shareIsReachable(linkShare)) {
    MsgBox("You are attempting to connect to: " + linkShare +
               " and this shows to be an invalid network share",
           kSystemModal, "Connection Error");
    throw RunTimeError(kObjectNotSet);
  }
  SystemInfo->ComputerName = workstation;
  SystemInfo->TerminalID = "0";
  const std::unique_ptr<File> terminalTable = openTerminalTable(terminals);
  SystemInfo->IP = dottedForm(resolveHost(workstation));
  // The engine has an error of its own for this, -10 "Terminal File 'ttymap' not found", but it is
  // raised where errors are suppressed. What callers have always seen, and test for, is the error
  // of the reader that is not there.
  if (!terminalTable) throw RunTimeError(kObjectNotSet);
  TextReader table(*terminalTable);
  const std::string terminal = terminalId(table, *SystemInfo);
  if (!terminal.empty()) SystemInfo->TerminalID = terminal;

  // The release of the former files closes them, for every engine object.
  auto links = std::make_shared<cLinks>();
  links->load(linkTable);
  Links = std::move(links);
  OpenFiles = std::make_shared<cOpenFiles>();
  LogicalFiles = std::make_shared<cLogicalFiles>();
}

cBusinessBasic::~cBusinessBasic() {
  OpenFiles.reset();
  Links.reset();
  SystemInfo.reset();
  LogicalFiles.reset();
}

// --- Field codec ---------------------------------------------------------------------------------

std::int32_t cBusinessBasic::Unpack(std::string& OpCode, const std::string& Data,
                                    std::int32_t Position) const {
  return dg::Unpack(OpCode, Data, Position);
}

std::int32_t cBusinessBasic::Unpack(char OpCode, std::string_view Data,
                                    std::int32_t Position) const {
  return dg::Unpack(OpCode, Data, Position);
}

void cBusinessBasic::Pack(std::string& OpCode, std::string& Data, std::int32_t Value,
                          std::int32_t Position) const {
  dg::Pack(OpCode, Data, Value, Position);
}

void cBusinessBasic::Pack(char OpCode, std::string& Data, std::int32_t Value,
                          std::int32_t Position) const {
  dg::Pack(OpCode, Data, Value, Position);
}

Date cBusinessBasic::UnPackDate(std::string_view OpCode, std::string_view Data,
                                std::int32_t Position) const {
  return dg::UnPackDate(OpCode, Data, Position);
}

void cBusinessBasic::PackDate(std::string_view OpCode, std::string& Data, std::int32_t Position,
                              Date Value) const {
  dg::PackDate(OpCode, Data, Position, Value);
}

std::string cBusinessBasic::Ucm(std::string& Text) const {
  return dg::Ucm(Text);
}

std::string cBusinessBasic::Crm(std::string& Text) const {
  return dg::Crm(Text);
}

void cBusinessBasic::Stma(const Variant& Code, Variant& A1, Variant& A2, Variant& A3, Variant& A4,
                          Variant& A5) const {
  dg::Stma(Code, A1, A2, A3, A4, A5);
}

// --- Utilities -----------------------------------------------------------------------------------

void cBusinessBasic::StrPos(std::int32_t& Position, std::string_view Source,
                            std::string_view Target) const {
  const std::size_t found = Source.empty() ? std::string_view::npos : Source.find(Target);
  Position = found == std::string_view::npos ? 0 : static_cast<std::int32_t>(found) + 1;
}

std::string cBusinessBasic::Trun(std::string_view Source, bool flgRemoveControlCharacters) const {
  return dg::Trun(Source, flgRemoveControlCharacters);
}

std::vector<std::string> cBusinessBasic::Split(std::string_view Expression,
                                               std::string_view Delimiter, std::int32_t Limit,
                                               Compare compare) const {
  return dg::Split(Expression, Delimiter, Limit, compare);
}

std::int32_t cBusinessBasic::Sys(std::int32_t Code) const {
  switch (Code) {
    case 1:
      return Now().day();
    case 2:
      return Now().month();
    case 3:
      return Now().year();
    case 4:
      if (!SystemInfo) throw RunTimeError(kObjectNotSet);
      return CLng(SystemInfo->TerminalID);
    case 28: {
      const Date today = Now();
      return today.month() * 10000 + today.day() * 100 + today.year() % 100;
    }
    case 128: {
      const Date today = Now();
      return today.year() % 100 * 10000 + today.month() * 100 + today.day();
    }
    case 152:
      return dayNumber(Now());
    default:
      return 0;
  }
}

std::shared_ptr<cSystem> cBusinessBasic::QuilSys() const {
  return SystemInfo;
}

Date cBusinessBasic::Now() const {
  return UseTCP ? broker::time() : now();
}

// --- Physical files ------------------------------------------------------------------------------

std::shared_ptr<cOpenFile> cBusinessBasic::OpenFile(std::string& FileName) const {
  return iOpenFile(FileName);
}

void cBusinessBasic::CloseFile(const FileArgument& OpenFile) const {
  const auto file = OpenFile.resolve();
  if (file) {
    iCloseFile(file->Path);
  } else if (OpenFile.isObject()) {
    throw RunTimeError(kObjectNotSet);
  }
}

std::string cBusinessBasic::ReadFile(const FileArgument& OpenFile, std::int32_t BytesToRead,
                                     std::int32_t Position, bool& Orb) const {
  return iReadFile(OpenFile.resolve(), BytesToRead, Position, Orb);
}

void cBusinessBasic::WriteFile(const FileArgument& OpenFile, const std::string& Data,
                               std::int32_t Position, bool& Orb) const {
  iWriteFile(OpenFile.resolve(), Data, Position, Orb);
}

std::string cBusinessBasic::BlockReadFile(const FileArgument& OpenFile, std::int32_t BlockNumber,
                                          bool& Orb) const {
  return iReadFile(OpenFile.resolve(), kBlockSize, checkedMultiply(BlockNumber, kBlockSize), Orb);
}

void cBusinessBasic::BlockWriteFile(const FileArgument& OpenFile, std::int32_t BlockNumber,
                                    const std::string& Record, bool& Orb) const {
  iWriteFile(OpenFile.resolve(), Record, checkedMultiply(BlockNumber, kBlockSize), Orb);
}

// --- Logical files -------------------------------------------------------------------------------

std::shared_ptr<cLogicalFile> cBusinessBasic::LogicalOpen(const std::string& FileName) const {
  return iLogicalOpen(FileName);
}

std::shared_ptr<cLogicalFile> cBusinessBasic::PhysLogicalOpen(const std::string& FileName,
                                                              const std::string& FileType,
                                                              std::int32_t RecordLength,
                                                              std::int32_t& LastRecord) const {
  std::string path = FileName;
  auto file = iOpenFile(path);
  if (!file) return nullptr;
  if (LastRecord == 0) {
    if (RecordLength == 0) throw RunTimeError(kDivisionByZero);
    const std::int64_t records = fileLength(file->vbFileNumber) / RecordLength - 1;
    if (records > INT32_MAX || records < INT32_MIN) throw RunTimeError(kOverflow);
    LastRecord = static_cast<std::int32_t>(records);
  }
  if (!LogicalFiles) throw RunTimeError(kObjectNotSet);
  return LogicalFiles->Add(FileName, FileType, file, 0, 0, RecordLength, LastRecord, "");
}

std::string cBusinessBasic::LreadFile(const LogicalFileArgument& LogicalFile,
                                      std::int32_t RecordNumber, bool& Orb) const {
  return iLreadFile(LogicalFile.resolve(), RecordNumber, Orb);
}

std::string cBusinessBasic::LwriteFile(const LogicalFileArgument& LogicalFile,
                                       std::int32_t RecordNumber, const std::string& Data,
                                       bool& /*Orb*/) const {
  iLwriteFile(LogicalFile.resolve(), RecordNumber, Data);
  return {};
}

void cBusinessBasic::GetRec(const LogicalFileArgument& LogicalFile, std::int32_t& RecordNumber,
                            bool& Orb) const {
  const auto file = required(LogicalFile);
  const std::int32_t lock = LogicalLock(file, 0);
  if (lock <= 0) {
    throw RunTimeError(57, "iGetRec",
                       "Could not obtain a Lock on Record Zero of " + file->FileName);
  }
  const HeldLock held(*this, lock);
  RecordNumber = allocateRecord(*file, Orb);
}

void cBusinessBasic::DelRec(const LogicalFileArgument& LogicalFile, std::int32_t RecordNumber,
                            bool& Orb) const {
  releaseRecord(LogicalFile.resolve(), RecordNumber, Orb);
}

void cBusinessBasic::InitFile(const LogicalFileArgument& LogicalFile, std::int32_t KeyLength,
                              bool DuplicateKeys, std::int32_t BlockingFactor, bool& Orb) const {
  initialiseFile(LogicalFile.resolve(), KeyLength, DuplicateKeys, BlockingFactor, Orb);
}

std::int32_t cBusinessBasic::PhysicalLock(const std::string& /*FileName*/,
                                          std::int32_t /*Position*/,
                                          std::int32_t /*LockLength*/) const {
  return 0;
}

std::int32_t cBusinessBasic::LogicalLock(const LogicalFileArgument& LogicalFile,
                                         std::int32_t RecordNumber) const {
  const auto file = required(LogicalFile);
  return PhysicalLock(file->FileName, file->recordOffset(RecordNumber), file->RecordLength);
}

std::int32_t cBusinessBasic::ReleaseLock(std::int32_t /*LockNumber*/) const {
  return 0;
}

// --- Keyed index ---------------------------------------------------------------------------------

void cBusinessBasic::KFind(const LogicalFileArgument& LogicalFile, std::string& Buff,
                           std::string& Key, std::int32_t& Rec, bool& Orb) const {
  iKFind(*required(LogicalFile), Buff, Key, Rec, Orb);
}

void cBusinessBasic::KNext(const LogicalFileArgument& LogicalFile, std::string& Buff,
                           std::string& Key, std::int32_t& Rec, bool& Orb) const {
  iKNext(*required(LogicalFile), Buff, Key, Rec, Orb);
}

void cBusinessBasic::KPrev(const LogicalFileArgument& LogicalFile, std::string& Buff,
                           std::string& Key, std::int32_t& Rec, bool& Orb) const {
  iKPrev(*required(LogicalFile), Buff, Key, Rec, Orb);
}

void cBusinessBasic::KLast(const LogicalFileArgument& LogicalFile, std::string& Buff,
                           std::string& Key, std::int32_t& Rec, bool& Orb) const {
  iKLast(*required(LogicalFile), Buff, Key, Rec, Orb);
}

std::int32_t cBusinessBasic::KCount(const LogicalFileArgument& LogicalFile, bool& Orb) const {
  return iKCount(*required(LogicalFile), Orb);
}

std::int32_t cBusinessBasic::KLength(const LogicalFileArgument& LogicalFile, bool& Orb) const {
  return iKLength(*required(LogicalFile), Orb);
}

}  // namespace dg
