// SPDX-License-Identifier: MIT
#include "commands/products/sub_images.h"

#include "imageblock/image_header_text.h"
#include "platform/number_text.h"
#include "platform/replacing_file.h"
#include "platform/work_meter.h"
#include "products/sub_image.h"
#include "services/chosen_file.h"
#include "services/hourglass.h"
#include "state/camera_access.h"
#include "state/cause.h"

namespace sylvomex {
namespace {

void Replace_Text_File(const FilePath& file, const std::string& text) {
  Replace_Whole_File(file, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

void Write_Version(const Workspace& w, const ImageRecord& image, const RawRectangle& rectangle,
                   const std::string& name) {
  const PositionalFile raw(w.Drives.Locate(image.RawFileName.Trimmed()));
  const std::string cut_raw = name + ".raw";
  Write_Cut_Out(raw, image, rectangle, w.Drives.Locate(cut_raw));
  Replace_Text_File(w.Drives.Locate(name + ".hdr"),
                    Image_Header_Text(Cut_Out_Record(image, rectangle, cut_raw)));
}

void Cut_Out(const Workspace& w, int k, const GroundBuffer& buffer) {
  const ImageRecord& image = w.ImageBlock(k);
  const RawRectangle rectangle = Rectangle_Around(image, Camera_Of(w, k), buffer);
  for (const char* const prefix : {"c:\\data\\B4_", "c:\\data\\B4_color_"}) {
    Write_Version(w, image, rectangle, prefix + Plain_Text(image.ImageId));
  }
}

}  // namespace

void Write_SUB_images(Workspace& w) {
  const auto file =
      Ask_File(w, {"File with X,Y,Z,BUFF EW, BUFF NS, Filename", "TXT files (*.txt)|*.txt", 1, ""});
  if (!file) return;
  const std::vector<GroundBuffer> buffers = Read_Ground_Buffers(*file);
  const HourglassGuard hourglass(w);
  WorkMeter meter(static_cast<double>(buffers.size()));
  for (const GroundBuffer& buffer : buffers) {
    for (int k = 0; k < w.ImageCount; ++k) {
      About(w, Name_Of_Image(w, k), [&] { Cut_Out(w, k, buffer); });
    }
    meter.Step();
  }
}

}  // namespace sylvomex
