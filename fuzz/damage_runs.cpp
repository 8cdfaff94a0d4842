// Damages small runs and reads them with a good case in store: cut at every byte, one bit flipped in every byte of the
// header (and of the companion), and whole ones in pieces of 1, 7 and 4095 bytes, as a pipe gives them. A refused read
// must leave the case in store as it is; pieces must give the same case. Prints what it did; 1 if anything was wrong.
//
// Usage: damage_runs FILE...   (inputs as in corpus/: a second file stands behind a line %%%%)
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "case/read/read_output_file.h"
#include "fake_platform.h"
#include "fuzz/try_input.h"
#include "run_writer.h"

namespace zaview {
namespace {

// The machine in memory, giving at most `piece` bytes a read.
struct PieceByPiece : FakePlatform {
  std::size_t piece = SIZE_MAX;
};

Platform PiecePlatform(PieceByPiece& fake) {
  Platform platform = fake.Get();
  if (fake.piece == SIZE_MAX) return platform;
  platform.files.read = [](void* self, FileHandle file, char* to, std::size_t size) -> std::int64_t {
    auto& machine = static_cast<PieceByPiece&>(FakePlatform::Of(self));
    return machine.Get().files.read(self, file, to, std::min(size, machine.piece));
  };
  platform.files.facts = [](void* self, const std::string& name) {
    FileFacts facts = static_cast<PieceByPiece&>(FakePlatform::Of(self)).Get().files.facts(self, name);
    facts.plain = false;
    facts.size = -1;
    return facts;
  };
  return platform;
}

void AddBytes(std::uint64_t& digest, const void* bytes, std::size_t size) {  // FNV-1a
  for (std::size_t i = 0; i < size; ++i)
    digest = (digest ^ static_cast<const unsigned char*>(bytes)[i]) * 1099511628211U;
}

void AddHistory(std::uint64_t& digest, const StepHistory& history) {
  AddBytes(digest, &history.first, sizeof history.first);
  for (const std::vector<float>& column : history.component)
    AddBytes(digest, column.data(), column.size() * sizeof(float));
}

std::uint64_t DigestOf(const CaseStore& c) {
  std::uint64_t digest = 1469598103934665603U;
  const std::string fields = fmt::format("{} {} {} {} {} {} {}", c.control.DESCR, c.control.DTH, c.first_read,
                                         c.last_read, c.first_step, c.last_step, c.loads.NBCA);
  AddBytes(digest, fields.data(), fields.size());
  for (const StepHistory* history :
       {&c.time, &c.pmgg, &c.vmg, &c.acc, &c.force, &c.rudder_cmd, &c.rudder_ang, &c.prop_rps, &c.tadm, &c.fimp})
    AddHistory(digest, *history);
  for (const StepHistory& history : c.load_force) AddHistory(digest, history);
  for (const StepHistory& history : c.load_moment) AddHistory(digest, history);
  for (const IrfBlock& irf : c.irfs) AddHistory(digest, irf.force);
  return digest;
}

struct Store {
  RunState run;
  OutputSettings settings;
  CaseStore case_store;
  EnsembleStore ensemble;
};

ReadOutcome Read(PieceByPiece& fake, const std::string& name, Store& store) {
  store.run.skip_prompt = SkipPrompt::silent;
  ReadRequest request;
  request.name = name;
  fake.output.clear();
  return read_output_file(request, PiecePlatform(fake), store.run, store.settings, store.case_store, store.ensemble);
}

struct Counts {
  int cuts = 0, flips = 0, pieces = 0, refused = 0, wrong = 0;
};

void PutGood(PieceByPiece& fake) {
  run_writer::RunSpec spec;
  (void)run_writer::SampleSpec("regular_head", spec);
  spec.nstep = spec.steps = 12;
  fake.Put("good.out", run_writer::RunText(spec));
}

// Reads a damaged run behind a good one.
void TryDamaged(const std::string& input, Counts& counts) {
  const auto [run, named] = TwoFiles(input);
  PieceByPiece fake;
  PutGood(fake);
  fake.Put("run.out", std::string(run));
  fake.Put("run.outu", std::string(named));
  Store store;
  (void)Read(fake, "good.out", store);
  const std::uint64_t before = DigestOf(store.case_store);
  const ReadOutcome outcome = Read(fake, "run.out", store);
  if (outcome != ReadOutcome::ok) ++counts.refused;
  // A companion that can't be read leaves its header as the case: that read has not been refused.
  const bool replaced = store.case_store.file_name == "run.out";
  if (outcome != ReadOutcome::ok && !replaced && DigestOf(store.case_store) != before) ++counts.wrong;
  if (outcome != ReadOutcome::ok && fake.output.empty()) ++counts.wrong;
  if (fake.OpenHandles() != 0) ++counts.wrong;
}

void TryPieces(const std::string& input, Counts& counts) {
  const auto [run, named] = TwoFiles(input);
  std::uint64_t whole = 0;
  for (const std::size_t piece : {SIZE_MAX, std::size_t{1}, std::size_t{7}, std::size_t{4095}}) {
    PieceByPiece fake;
    fake.piece = piece;
    fake.Put("run.out", std::string(run));
    fake.Put("run.outu", std::string(named));
    Store store;
    (void)Read(fake, "run.out", store);
    const std::uint64_t digest = DigestOf(store.case_store);
    if (piece == SIZE_MAX) whole = digest;
    if (digest != whole) ++counts.wrong;
    ++counts.pieces;
  }
}

void DamageRun(const std::string& input, Counts& counts) {
  for (std::size_t n = 0; n < input.size(); ++n, ++counts.cuts) TryDamaged(input.substr(0, n), counts);
  std::size_t header = std::min(input.find('\n', input.find("END_OF_HEADER")), input.size());
  if (input.find("\n%%%%\n") != std::string::npos) header = input.size();  // its companion as well
  for (std::size_t n = 0; n < header; ++n, ++counts.flips) {
    std::string flipped = input;
    flipped[n] = static_cast<char>(flipped[n] ^ (1 << (n % 8)));
    TryDamaged(flipped, counts);
  }
  TryPieces(input, counts);
}

}  // namespace
}  // namespace zaview

int main(int count, char** names) {
  if (count < 2) fmt::print(stderr, "usage : damage_runs FILE...\n");
  int wrong = count < 2 ? 1 : 0;
  for (int i = 1; i < count; ++i) {
    std::ifstream file(names[i], std::ios::binary);
    const std::string input((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (input.empty()) {
      fmt::print(stderr, "damage_runs: {} can't be read\n", names[i]);
      ++wrong;
      continue;
    }
    zaview::Counts counts;
    zaview::DamageRun(input, counts);
    fmt::print("{}: {} cuts, {} flipped bits, {} reads in pieces; {} refused, {} wrong\n", names[i], counts.cuts,
               counts.flips, counts.pieces, counts.refused, counts.wrong);
    std::fflush(stdout);
    wrong += counts.wrong;
  }
  return wrong == 0 ? 0 : 1;
}
