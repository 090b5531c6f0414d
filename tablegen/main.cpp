// tablegen: writes the tables of the library, or checks that they are up to date.

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tablegen/emit/element_table.hpp"
#include "tablegen/emit/inverse_table.hpp"
#include "tablegen/emit/isochore_table.hpp"
#include "tablegen/emit/logarithm_table.hpp"
#include "tablegen/emit/patch_table.hpp"
#include "tablegen/emit/saturation_bounds_table.hpp"
#include "tablegen/emit/start_grid_table.hpp"
#include "tablegen/emit/start_map_table.hpp"
#include "tablegen/emit/table.hpp"
#include "tablegen/emit/tp_curve_table.hpp"
#include "tablegen/parallel.hpp"

namespace {

using co2_properties::tablegen::Generated;
using co2_properties::tablegen::Table;

/// Every table, in the order of `tablegen all`.
std::vector<Table> registry() {
  std::vector<Table> tables = co2_properties::tablegen::patch_tables();
  tables.push_back(co2_properties::tablegen::logarithm_table_entry());
  tables.push_back(co2_properties::tablegen::elements_table());
  tables.push_back(co2_properties::tablegen::tp_curves_table());  // reads the element table
  for (Table& table : co2_properties::tablegen::inverse_tables()) {
    tables.push_back(std::move(table));
  }
  tables.push_back(co2_properties::tablegen::start_maps_table());
  tables.push_back(co2_properties::tablegen::saturation_bounds_table());
  tables.push_back(co2_properties::tablegen::isochores_table());
  tables.push_back(co2_properties::tablegen::saturated_nodes_table());
  for (Table& table : co2_properties::tablegen::start_grid_tables()) {
    tables.push_back(std::move(table));
  }
  return tables;
}

std::string read_file(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Writes next to the target and renames, so that an interrupted run leaves the old table whole.
void write_file(const std::filesystem::path& path, const std::string& text) {
  const std::filesystem::path draft = path.string() + ".new";
  {
    std::ofstream stream(draft, std::ios::binary);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    stream << text;
  }
  std::filesystem::rename(draft, path);
}

}  // namespace

int main(int argc, char** argv) try {
  const std::vector<Table> tables = registry();
  std::vector<std::string> names = {"all"};
  for (const Table& table : tables) names.push_back(table.name);

  CLI::App app{
      "Writes the tables of the library into src/, each from its tiling and its reference."};
  std::vector<std::string> wanted;
  bool check = false;
  std::string report_path;
  app.add_option("table", wanted, "Tables to make")->required()->check(CLI::IsMember(names));
  app.add_flag("--check", check, "Write nothing; fail if a table is not what would be written");
  app.add_option("--report", report_path, "File for the fit errors of every record");
  app.add_option("--threads", co2_properties::tablegen::thread_count, "Threads that take part")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);

  std::string report;
  bool good = true;
  for (const Table& table : tables) {
    bool selected = false;
    for (const std::string& name : wanted) selected |= name == "all" || name == table.name;
    if (!selected) continue;
    const auto start = std::chrono::steady_clock::now();
    const Generated generated = table.generate();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::printf("%s: %.1f s; %s\n", table.name.c_str(), time.count(), generated.summary.c_str());
    report += generated.report;
    const std::filesystem::path path = std::filesystem::path(TABLEGEN_SOURCE_DIR) / table.output;
    if (check) {
      const bool same = read_file(path) == generated.source;
      if (!same) std::printf("  NOT up to date: %s has other bytes\n", table.output.c_str());
      good = good && same;
    } else {
      write_file(path, generated.source);
    }
  }
  if (!report_path.empty()) write_file(report_path, report);
  return good ? 0 : 1;
} catch (const std::exception& error) {
  std::fprintf(stderr, "tablegen: %s\n", error.what());
  return 2;
}
