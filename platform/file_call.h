#pragma once

namespace dg {

/// Calls of the system that reach a share, each of them a round trip. Questions are about what
/// stands at a path, or in a folder; those about an open file are answered from what its opening
/// and its reads brought along, and closing counts though the system may put it off.
enum class FileCall { kOpen, kClose, kQuestion, kRead };

using FileCallWatcher = void (*)(FileCall call);

/// Has each call told to a watcher once it is done, on the thread that made it; nullptr ends that.
/// Returns the former watcher. For the benchmarks, which count the calls and wait at them.
FileCallWatcher watchFileCalls(FileCallWatcher watcher);

/// Tells the watcher of a call; for those who make them.
void noteFileCall(FileCall call);

}  // namespace dg
