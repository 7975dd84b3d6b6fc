// A live session on this machine: how long it takes from an edit of the document until the bytes
// have arrived at the other end.

#include <arpa/inet.h>
#include <benchmark/benchmark.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "export/camera.h"
#include "host/document/app.h"
#include "host/geometry/on_mesh.h"
#include "interactive/interactive_render.h"

namespace {

using Clock = std::chrono::steady_clock;

// The other end: reads all that comes, and knows when what was waited for had come.
class Peer {
 public:
  Peer() {
    listener_ = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    socklen_t length = sizeof(place);
    auto* const address = reinterpret_cast<sockaddr*>(&place);
    if (bind(listener_, address, length) != 0 || listen(listener_, 1) != 0 ||
        getsockname(listener_, address, &length) != 0) {
      return;
    }
    port_ = ntohs(place.sin_port);
    reader_ = std::thread([this] { ReadAll(); });
  }
  ~Peer() {
    reader_.join();
    close(listener_);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  std::uint16_t Port() const { return port_; }
  std::uint64_t Bytes() const { return bytes_.load(std::memory_order_acquire); }

 private:
  void ReadAll() {
    const int peer = accept(listener_, nullptr, nullptr);
    char block[65536];
    for (ssize_t count = 1; count > 0;) {
      count = recv(peer, block, sizeof(block), 0);
      if (count > 0) bytes_.fetch_add(static_cast<std::uint64_t>(count), std::memory_order_release);
    }
    close(peer);
  }

  int listener_ = -1;
  std::uint16_t port_ = 0;
  std::atomic<std::uint64_t> bytes_ = 0;
  std::thread reader_;
};

// A document of `count` meshes, of which one in a thousand has the material that is edited, with a
// light, and a session that follows it.
class LiveSession {
 public:
  explicit LiveSession(int count) {
    user_.ConvertTextures = false;
    ONX_Model model;
    model.m_layer_table.emplace_back();
    model.m_material_table.resize(2);
    model.m_material_table[1].SetUserString("OrvSurface", "\"VPlastic\" \"float Ks\" 0.5");
    model.m_material_table[1].SetUserString("OrvDisplacement", "\"null\"");
    const auto mesh = std::make_shared<ON_Mesh>();
    mesh->m_V = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    mesh->m_F = {{{0, 1, 2, 2}}};
    for (int i = 0; i < count; ++i) {
      ONX_ModelObject& object = model.m_object_table.emplace_back();
      object.m_geometry = mesh;
      object.m_attributes.m_material_source = ON_AttributeSource::object;
      object.m_attributes.m_material_index = i % 1000 == 0 ? 1 : 0;
    }
    auto light = std::make_shared<ON_Light>();
    light->m_style = ON_LightStyle::world_spot;
    light->m_spot_angle = 30;
    model.m_light_table.emplace_back().m_light = light;
    Doc().SetModel(std::move(model), "");
    auto connection =
        host::TcpConnection::Open({{127, 0, 0, 1}}, peer_.Port(), std::chrono::seconds(5));
    if (connection) render_.Follow(std::make_unique<orv::IprSession>(std::move(*connection)));
    render_.SetScene({1, View().Viewport().ViewportId(), {}, 0});
  }
  ~LiveSession() {
    render_.EndIprSession();
    Doc().SetModel({}, "");
  }

  static CRhinoDoc& Doc() { return RhinoApp().ActiveDoc(); }
  static CRhinoView& View() { return *Doc().ActiveView(); }
  std::uint64_t Bytes() const { return peer_.Bytes(); }
  bool IsRunning() const { return render_.IsRunning(); }

  // Waits until something has come since there were `before` bytes.
  void WaitForMore(std::uint64_t before) const {
    while (peer_.Bytes() == before) {
    }
  }

 private:
  Peer peer_;
  ON_UserStringList settings_;
  orv::UserValues user_;
  orv::TextureConverter textures_;
  orv::InteractiveRender render_{settings_, user_, textures_};
};

// The time from an edit to the first bytes at the other end.
template <class Edit>
void MeasureArrival(benchmark::State& state, const LiveSession& session, Edit edit) {
  if (!session.IsRunning()) state.SkipWithError("no session");
  for (auto _ : state) {
    const std::uint64_t before = session.Bytes();
    const Clock::time_point begin = Clock::now();
    edit();
    session.WaitForMore(before);
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
  }
}

void LightChange(benchmark::State& state) {
  const LiveSession session(10);
  ON_Light light = *ON_Light::Cast(LiveSession::Doc().m_light_table.At(0)->Geometry());
  MeasureArrival(state, session, [&] {
    light.m_location.x += 1;
    benchmark::DoNotOptimize(LiveSession::Doc().m_light_table.ModifyLight(light, 0));
  });
}
BENCHMARK(LightChange)->UseManualTime()->Unit(benchmark::kMicrosecond);

void ViewChange(benchmark::State& state) {
  const LiveSession session(10);
  double x = 0;
  MeasureArrival(state, session, [&] {
    x += 1;
    benchmark::DoNotOptimize(
        LiveSession::View().Viewport().SetCamera({x, -10, 5}, ON_3dPoint{x, 0, 0}));
    LiveSession::View().Redraw();
  });
}
BENCHMARK(ViewChange)->UseManualTime()->Unit(benchmark::kMicrosecond);

// The walk through all objects, and a frame for each one in a thousand.
void MaterialChange(benchmark::State& state) {
  const LiveSession session(static_cast<int>(state.range(0)));
  ON_Material material = *LiveSession::Doc().m_material_table.At(1);
  int red = 0;
  MeasureArrival(state, session, [&] {
    material.SetDiffuse(ON_Color(red = (red + 1) % 256, 0, 0));
    benchmark::DoNotOptimize(LiveSession::Doc().m_material_table.ModifyMaterial(material, 1));
  });
}
BENCHMARK(MaterialChange)->Arg(1000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void Frames(benchmark::State& state) {
  const LiveSession session(10);
  ON_Light light = *ON_Light::Cast(LiveSession::Doc().m_light_table.At(0)->Geometry());
  for (auto _ : state) {
    light.m_location.x += 1;
    benchmark::DoNotOptimize(LiveSession::Doc().m_light_table.ModifyLight(light, 0));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(Frames)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
