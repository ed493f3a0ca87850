#include "engine/open_file.h"

#include "engine/broker.h"
#include "engine/state.h"
#include "platform/file.h"
#include "platform/read_ahead.h"
#include "platform/unopened_files.h"
#include "platform/values/checked.h"
#include "platform/values/convert.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

std::string place(const cOpenFile& file, std::int32_t offset, std::size_t length) {
  return file.Path + "@" + Str(offset) + " " + Str(static_cast<std::int32_t>(length)) + "bytes";
}

void checkRead(const std::shared_ptr<cOpenFile>& file, std::int32_t count, bool& orb) {
  if (!UseTCP) orb = false;
  if (!file) throw RunTimeError(kObjectNotSet);
  if (count < 0) throw RunTimeError(kInvalidProcedureCall);
}

std::string brokerRead(cOpenFile& file, std::int32_t count, std::int32_t position) {
  if (position > -1) file.Position = position;
  const std::int32_t offset = file.Position;
  std::string data;
  if (broker::read(offset, file.Path, count, data) != 0) {
    throw RunTimeError(
        81, "iReadFile",
        "Read File: Couldn't Read File: " + place(file, offset, static_cast<std::size_t>(count)));
  }
  file.Position = checkedAdd(offset, count);
  return data;
}

}  // namespace

cOpenFiles::~cOpenFiles() {
  for (const Pointer& file : NewEnum()) {
    try {
      closeNumbered(file->vbFileNumber);
    } catch (const RunTimeError&) {  // NOLINT(bugprone-empty-catch): the others must close too
    }
  }
}

std::shared_ptr<cOpenFile> cOpenFiles::Add(std::int32_t vbFileNumber, const std::string& Path,
                                           std::int32_t Position, const std::string& sKey) {
  auto file = std::make_shared<cOpenFile>();
  file->vbFileNumber = vbFileNumber;
  file->Path = Path;
  file->Position = Position;
  return insert(std::move(file), sKey);
}

std::shared_ptr<cOpenFile> iOpenFile(std::string& FileName) {
  if (FileName.find('\\') == std::string::npos) {
    if (!SystemInfo) throw RunTimeError(kObjectNotSet);
    FileName = SystemInfo->VLMRLNK() + "\\" + FileName;
  }
  // No collection, no engine: nobody would ever close the file.
  if (!OpenFiles) return nullptr;
  if (auto known = OpenFiles->find(FileName)) return known;
  try {
    auto file = std::make_shared<cOpenFile>();
    file->vbFileNumber = FreeFile();
    file->Path = FileName;
    // Reading and writing, though nothing is written: that is how the suite's terminals share
    // their files, and a share that grants reading only is refused here.
    openNumbered(file->vbFileNumber, FileName, FileAccess::kReadWrite);
    OpenFiles->Add(file->vbFileNumber, file->Path, file->Position, file->Path);
    // The caller's object is not the collection's: the two have the file in common and positions
    // of their own.
    return file;
  } catch (const RunTimeError& error) {
    // Whatever the reason, missing or not to be opened: "Could not open file" reaches nobody.
    noteUnopened(FileName, error);
    return nullptr;
  }
}

void iExpectFile(const std::string& FileName, FileAccess access, Expected when) {
  if (!SystemInfo || !canExpectFiles()) return;
  expectFile(SystemInfo->VLMRLNK() + "\\" + FileName, access, when);
}

void iCloseFile(const std::string& Path) {
  const auto file = OpenFiles ? OpenFiles->find(Path) : nullptr;
  if (!file) return;
  if (UseTCP) broker::close(file->Path);
  closeNumbered(file->vbFileNumber);
  OpenFiles->Remove(file->Path);
}

std::string iReadFile(const std::shared_ptr<cOpenFile>& OpenFile, std::int32_t BytesToRead,
                      std::int32_t Position, bool& Orb) {
  checkRead(OpenFile, BytesToRead, Orb);
  if (Orb) return brokerRead(*OpenFile, BytesToRead, Position);
  return readNumbered(OpenFile->vbFileNumber, Position, static_cast<std::size_t>(BytesToRead));
}

void iReadFileInto(const std::shared_ptr<cOpenFile>& OpenFile, char* buffer,
                   std::int32_t BytesToRead, std::int32_t Position, bool& Orb) {
  checkRead(OpenFile, BytesToRead, Orb);
  if (Orb) {
    brokerRead(*OpenFile, BytesToRead, Position)
        .copy(buffer, static_cast<std::size_t>(BytesToRead));
  } else {
    readNumbered(OpenFile->vbFileNumber, Position, buffer, static_cast<std::size_t>(BytesToRead));
  }
}

void iWriteFile(const std::shared_ptr<cOpenFile>& OpenFile, const std::string& Data,
                std::int32_t Position, bool& Orb) {
  if (!UseTCP) Orb = false;
  if (!OpenFile) throw RunTimeError(-10, "iwriteFile", "OpenFile parameter is undefined");
  if (Position > -1) OpenFile->Position = Position;
  if (!Orb) {
    writeNumbered(OpenFile->vbFileNumber, OpenFile->Position, Data);
    return;
  }
  const auto length = static_cast<std::int32_t>(Data.size());
  if (broker::write(OpenFile->Position, OpenFile->Path, length, Data) != 0) {
    throw RunTimeError(
        81, "iWriteFile",
        "Couldn't Write to File: " + place(*OpenFile, OpenFile->Position, Data.size()));
  }
  OpenFile->Position = checkedAdd(OpenFile->Position, length);
}

}  // namespace dg
