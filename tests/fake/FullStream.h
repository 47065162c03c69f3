#pragma once

#include <ostream>
#include <streambuf>

namespace strutwright {

/// A stream into a device that is full: it takes everything, but nothing gets where it should.
class FullStream : public std::ostream {
 public:
  FullStream() : std::ostream(nullptr) { rdbuf(&Buffer); }

 private:
  class FullBuffer : public std::streambuf {
    int overflow(int character) override { return traits_type::not_eof(character); }
    int sync() override { return -1; }
  };

  FullBuffer Buffer;
};

} // namespace strutwright
