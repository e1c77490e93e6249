// SPDX-License-Identifier: MIT
#include "interchange/checksum.h"

#include <openssl/evp.h>

#include <array>
#include <fstream>
#include <memory>
#include <vector>

#include "interchange/failures.h"
#include "interchange/ordinary_file.h"

namespace sylvomex {
namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18;

class Sha256 {
 public:
  Sha256() { EVP_DigestInit_ex(context_.get(), EVP_sha256(), nullptr); }

  void Add(const char* bytes, std::size_t count) { EVP_DigestUpdate(context_.get(), bytes, count); }

  std::string Hexadecimal() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    EVP_DigestFinal_ex(context_.get(), digest.data(), &size);
    std::string text;
    for (unsigned int i = 0; i < size; ++i) {
      text += "0123456789abcdef"[digest[i] >> 4U];
      text += "0123456789abcdef"[digest[i] & 15U];
    }
    return text;
  }

 private:
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_{EVP_MD_CTX_new(),
                                                                   &EVP_MD_CTX_free};
};

}  // namespace

std::string File_Checksum(const std::filesystem::path& file, const std::stop_token& stop) {
  Require_No_Device(file);
  std::error_code ignored;
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file, ignored)) {
    throw Refused(file.string() + ": the file cannot be read");
  }
  Sha256 sum;
  std::vector<char> block(kBlockBytes);
  while (stream && !stop.stop_requested()) {
    stream.read(block.data(), static_cast<std::streamsize>(block.size()));
    sum.Add(block.data(), static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad()) throw Refused(file.string() + ": the file cannot be read any further");
  return sum.Hexadecimal();
}

std::string Text_Checksum(std::string_view text) {
  Sha256 sum;
  sum.Add(text.data(), text.size());
  return sum.Hexadecimal();
}

}  // namespace sylvomex
