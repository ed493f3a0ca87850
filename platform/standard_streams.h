#pragma once

namespace dg {

/// Opens those of standard input, output and error that whoever started the process had closed, on
/// the null device and so that reading or writing them fails. Every program does this before
/// anything else: the next file to be opened would otherwise take the free place, and what is
/// printed would go into a data file of the store.
void openStandardStreams();

}  // namespace dg
