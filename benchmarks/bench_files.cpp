// SPDX-License-Identifier: MIT
#include "bench_files.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "bench_inputs.h"

namespace sylvomex::bench {
namespace {

namespace fs = std::filesystem;

bool Lies_There(const fs::path& file, std::uintmax_t size) {
  std::error_code missing;
  return fs::file_size(file, missing) == size && !missing;
}

void Write_Frame(const fs::path& file, int width, int height, std::uint64_t seed) {
  std::ofstream out(file, std::ios::binary | std::ios::trunc);
  std::vector<std::uint8_t> row(3 * static_cast<std::size_t>(width));
  std::vector<char> bytes(row.size());
  for (int raw_row = 0; raw_row < height; ++raw_row) {
    Fill_Frame_Row(seed, raw_row, row);
    bytes.assign(row.begin(), row.end());
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace

fs::path Data_Folder() {
  const char* told = std::getenv("SYLVOMEX_BENCH_DATA");
  const fs::path folder = told != nullptr && *told != '\0' ? told : SYLVOMEX_BENCH_DATA_DEFAULT;
  fs::create_directories(folder);
  return folder;
}

fs::path Frame_File(const std::string& name, int width, int height, std::uint64_t seed) {
  const fs::path file = Data_Folder() / name;
  const std::uintmax_t size =
      3 * static_cast<std::uintmax_t>(width) * static_cast<std::uintmax_t>(height);
  if (Lies_There(file, size)) return file;
  std::fprintf(stderr, "making %s\n", file.c_str());
  const fs::path part = file.string() + ".part";
  Write_Frame(part, width, height, seed);
  fs::rename(part, file);
  return file;
}

}  // namespace sylvomex::bench
