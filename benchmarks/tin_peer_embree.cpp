// SPDX-License-Identifier: MIT
// Vertical rays in packets of 16; heights and coordinates in single precision.
#include <embree3/rtcore.h>

#include <memory>
#include <thread>

#include "tin_inputs.h"
#include "tin_peers.h"

namespace sylvomex::bench {
namespace {

constexpr std::size_t kPacket = 16;
constexpr float kAbove = 1000;  // metres, above all heights

class Scene {
 public:
  Scene(const std::vector<TinNode>& nodes, const std::vector<TinTriple>& triples)
      : device_(rtcNewDevice(nullptr)), scene_(rtcNewScene(device_)) {
    rtcSetSceneFlags(scene_, RTC_SCENE_FLAG_ROBUST);
    RTCGeometry geometry = rtcNewGeometry(device_, RTC_GEOMETRY_TYPE_TRIANGLE);
    auto* vertex = static_cast<float*>(rtcSetNewGeometryBuffer(
        geometry, RTC_BUFFER_TYPE_VERTEX, 0, RTC_FORMAT_FLOAT3, 3 * sizeof(float), nodes.size()));
    for (const TinNode& n : nodes) {
      *vertex++ = static_cast<float>(n.X - kTinX);
      *vertex++ = static_cast<float>(n.Y - kTinY);
      *vertex++ = static_cast<float>(n.Z);
    }
    auto* index = static_cast<unsigned*>(
        rtcSetNewGeometryBuffer(geometry, RTC_BUFFER_TYPE_INDEX, 0, RTC_FORMAT_UINT3,
                                3 * sizeof(unsigned), triples.size()));
    for (const TinTriple& triple : triples) {
      for (const std::int32_t node : triple) *index++ = static_cast<unsigned>(node);
    }
    rtcCommitGeometry(geometry);
    rtcAttachGeometry(scene_, geometry);
    rtcReleaseGeometry(geometry);
    rtcCommitScene(scene_);
  }
  ~Scene() {
    rtcReleaseScene(scene_);
    rtcReleaseDevice(device_);
  }
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;

  void Heights(std::span<const MapPoint> places, std::span<double> heights) const {
    RTCIntersectContext context;
    rtcInitIntersectContext(&context);
    alignas(64) RTCRayHit16 rays;
    alignas(64) int valid[kPacket];
    for (std::size_t first = 0; first < places.size(); first += kPacket) {
      const std::size_t count = std::min(kPacket, places.size() - first);
      for (std::size_t j = 0; j < kPacket; ++j) {
        valid[j] = j < count ? -1 : 0;
        Set_Ray(rays, j, places[first + std::min(j, count - 1)]);
      }
      rtcIntersect16(valid, scene_, &context, &rays);
      for (std::size_t j = 0; j < count; ++j) {
        heights[first + j] = static_cast<double>(kAbove - rays.ray.tfar[j]);
      }
    }
  }

  void Heights_By_Two(std::span<const MapPoint> places, std::span<double> heights) const {
    const std::size_t half = places.size() / 2;
    std::thread other([&] { Heights(places.first(half), heights.first(half)); });
    Heights(places.subspan(half), heights.subspan(half));
    other.join();
  }

 private:
  static void Set_Ray(RTCRayHit16& rays, std::size_t j, const MapPoint& p) {
    rays.ray.org_x[j] = static_cast<float>(p.X - kTinX);
    rays.ray.org_y[j] = static_cast<float>(p.Y - kTinY);
    rays.ray.org_z[j] = kAbove;
    rays.ray.dir_x[j] = rays.ray.dir_y[j] = 0;
    rays.ray.dir_z[j] = -1;
    rays.ray.tnear[j] = 0;
    rays.ray.tfar[j] = 1e9F;
    rays.ray.time[j] = 0;
    rays.ray.mask[j] = ~0U;
    rays.ray.flags[j] = 0;
    rays.hit.geomID[j] = RTC_INVALID_GEOMETRY_ID;
    rays.hit.instID[0][j] = RTC_INVALID_GEOMETRY_ID;
  }

  RTCDevice device_;
  RTCScene scene_;
};

}  // namespace

std::vector<TinPeer> Embree_Tin(const std::vector<TinNode>& nodes,
                                const std::vector<TinTriple>& triples) {
  const auto scene = std::make_shared<Scene>(nodes, triples);
  const TinAnswers one = [scene](auto places, auto heights) { scene->Heights(places, heights); };
  const TinAnswers two = [scene](auto places, auto heights) {
    scene->Heights_By_Two(places, heights);
  };
  return {{"embree", one, one, 1}, {"embree", two, two, 2}};
}

}  // namespace sylvomex::bench
