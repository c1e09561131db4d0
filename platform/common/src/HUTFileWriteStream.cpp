#include "HUTFileWriteStream.h"

namespace {

std::ios_base::openmode openModeOf(int mode) {
  return mode == HUTFileWriteStream::APPEND ? std::ios_base::out | std::ios_base::app
                                            : std::ios_base::out | std::ios_base::trunc;
}

}  // namespace

HUTFileWriteStream::HUTFileWriteStream(std::string const& file, int mode)
    : std::ofstream(file, openModeOf(mode) | std::ios_base::binary) {}
