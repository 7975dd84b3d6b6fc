#include "export/crease_chains.h"

#include <algorithm>

namespace orv {
namespace {

double SharpnessOf(const ON_SubDEdge& edge) {
  // What isn't inside ends at the boundary anyway, or isn't part of the surface.
  if (edge.m_face_count < 2) return 0;
  if (edge.m_is_crease) return kInfinitelySharp;
  const double mean = edge.m_sharpness[0] / 2 + edge.m_sharpness[1] / 2;
  return std::clamp(mean, 0.0, kInfinitelySharp);
}

class ChainFinder {
 public:
  explicit ChainFinder(const ON_SubD& subd)
      : subd_(subd), edgesOf_(subd.m_vertex.size()), isDone_(subd.m_edge.size()) {
    sharpness_.reserve(subd.m_edge.size());
    for (std::size_t i = 0; i < subd.m_edge.size(); ++i) {
      sharpness_.push_back(SharpnessOf(subd.m_edge[i]));
      if (sharpness_[i] <= 0) continue;
      for (const int vi : subd.m_edge[i].m_vi) EdgesOf(vi).push_back(i);
    }
    const auto isLessSharp = [this](std::size_t a, std::size_t b) {
      return sharpness_[a] < sharpness_[b];
    };
    for (auto& edges : edgesOf_) std::sort(edges.begin(), edges.end(), isLessSharp);
  }

  std::vector<CreaseChain> Find() {
    std::vector<CreaseChain> chains;
    for (std::size_t i = 0; i < sharpness_.size(); ++i) {
      if (sharpness_[i] <= 0 || isDone_[i]) continue;
      // Back to where the chain begins, so that it is found in one piece.
      chains.push_back(Walk(FirstOf(i)));
    }
    return chains;
  }

 private:
  // An edge and the end from which it is left.
  struct Step {
    std::size_t edge;
    int to;
  };

  std::vector<std::size_t>& EdgesOf(int vi) { return edgesOf_[static_cast<std::size_t>(vi)]; }
  int OtherEnd(std::size_t edge, int vi) const {
    const auto& ends = subd_.m_edge[edge].m_vi;
    return ends[0] == vi ? ends[1] : ends[0];
  }

  // The step behind `step`; the same one where the chain ends.
  Step Next(Step step) {
    const std::vector<std::size_t>& edges = EdgesOf(step.to);
    const auto first = std::partition_point(edges.begin(), edges.end(), [&](std::size_t e) {
      return sharpness_[e] < sharpness_[step.edge];
    });
    const auto isAsSharp = [&](auto edge) {
      return edge < edges.end() && sharpness_[*edge] == sharpness_[step.edge];
    };
    if (!isAsSharp(first + 1) || isAsSharp(first + 2)) return step;
    const std::size_t next = *first == step.edge ? *(first + 1) : *first;
    return {next, OtherEnd(next, step.to)};
  }

  // The first step, in the direction of the edge `start`, of the chain that it is a part of.
  Step FirstOf(std::size_t start) {
    Step step{start, subd_.m_edge[start].m_vi[0]};
    while (true) {
      const Step next = Next(step);
      if (next.edge == step.edge || next.edge == start) break;
      step = next;
    }
    return {step.edge, OtherEnd(step.edge, step.to)};
  }

  // The chain; its edges are then done with.
  CreaseChain Walk(Step step) {
    CreaseChain chain;
    chain.Sharpness = sharpness_[step.edge];
    chain.Vertices = {OtherEnd(step.edge, step.to), step.to};
    const std::size_t first = step.edge;
    isDone_[first] = true;
    for (Step next = Next(step); next.edge != step.edge && next.edge != first; next = Next(step)) {
      step = next;
      isDone_[step.edge] = true;
      chain.Vertices.push_back(step.to);
    }
    return chain;
  }

  const ON_SubD& subd_;
  // Of each edge; 0 for one that is in no chain.
  std::vector<double> sharpness_;
  // The sharp edges of each vertex, by their sharpness.
  std::vector<std::vector<std::size_t>> edgesOf_;
  // Whether an edge is in a chain that was found.
  std::vector<bool> isDone_;
};

}  // namespace

std::vector<CreaseChain> FindCreaseChains(const ON_SubD& subd) {
  return ChainFinder(subd).Find();
}

}  // namespace orv
