// The command line, run as its users run it: through the shell, from the root of the project.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "api/co2_properties.hpp"
#include "tests/support/derivatives.hpp"
#include "tests/support/outputs.hpp"
#include "tests/support/program.hpp"

namespace co2_properties {
namespace {

using test::Outcome;
using test::split;

class Co2 : public test::ProgramTest {
 protected:
  /// Runs a shell command that finds `co2` on its path, in the root of the project. What it says
  /// comes without the rates, which it adds where it took longer than a moment.
  [[nodiscard]] Outcome shell(const std::string& command, const std::string& input = "") const {
    Outcome outcome = ProgramTest::shell(
        "{ cd '" PROJECT_DIR "' && PATH=\"$(dirname '" CO2_PROGRAM "'):$PATH\"; } && " + command,
        input);
    const std::string unit = " rows/s";
    for (std::size_t end = 0; (end = outcome.err.find(unit)) != std::string::npos;) {
      const std::size_t begin = outcome.err.rfind("; ", end);
      outcome.err.erase(begin, end + unit.size() - begin);
    }
    return outcome;
  }
};

using Values = std::vector<std::pair<std::string, std::vector<double>>>;  // one or two of each name

TEST_F(Co2, EachNameStandsBesideItsValues) {
  test::Outputs out, vap_out;
  test::Derivatives slopes, vap_slopes;
  Values state, derivatives, phases, phase_derivatives;
  std::string names;
  std::int32_t ierr = 0;
  co2_td(310.0, 600.0, ierr, out.subset(), slopes.set());
  ASSERT_EQ(ierr, 0);
  for (std::size_t i = 0; i < test::output_count; ++i) {
    state.push_back({test::output_names[i], {out.value[i]}});
  }
  for (std::size_t i = 0; i < test::derivative_count; ++i) {
    derivatives.push_back({test::all_derivatives[i].name, {slopes.value[i]}});
    names += std::string(i == 0 ? "" : ",") + test::all_derivatives[i].name;
  }
  double latent_heat = 0.0, dpdt_sat = 0.0;
  const DerivativeSet liq_set = slopes.set(), vap_set = vap_slopes.set();
  co2_sat_t(280.0, ierr,
            {out.subset(), vap_out.subset(), &latent_heat, &dpdt_sat, &liq_set, &vap_set});
  ASSERT_EQ(ierr, 0);
  for (std::size_t i = 0; i < test::output_count; ++i) {
    phases.push_back({test::output_names[i], {out.value[i]}});
    if (i != test::temp && i != test::pres) phases.back().second.push_back(vap_out.value[i]);
  }
  phases.push_back({"latent_heat", {latent_heat}});
  phases.push_back({"dpdt_sat", {dpdt_sat}});
  for (std::size_t i = 0; i < test::derivative_count; ++i) {
    phase_derivatives.push_back(
        {test::all_derivatives[i].name, {slopes.value[i], vap_slopes.value[i]}});
  }

  struct Case {
    std::string options;
    const char* inputs;
    const char* file;
    const Values& expected;
    std::size_t headings;
    std::size_t inputs_kept;  ///< in the file, beside what is expected
  };
  for (const auto& [options, inputs, file, expected, headings, inputs_kept] :
       {Case{"td ", "310 600", "temp,dens\n310,600\n", state, 0, 0},
        Case{"td -c " + names + " ", "310 600", "temp,dens\n310,600\n", derivatives, 0, 2},
        Case{"sat_t ", "280", "temp\n280\n", phases, 1, 0},
        Case{"sat_t -c " + names + " ", "280", "temp\n280\n", phase_derivatives, 1, 1}}) {
    SCOPED_TRACE(options);
    const std::vector<std::string> lines =
        split(shell("co2 " + options + inputs + " --digits 17").out, '\n');
    const std::vector<std::string> rows =
        split(shell("co2 " + options + "--csv -", file).out, '\n');
    ASSERT_EQ(lines.size(), expected.size() + headings);
    ASSERT_EQ(rows.size(), 2U);
    const std::vector<std::string> header = split(rows[0], ',');
    const std::vector<std::string> fields = split(rows[1], ',');
    std::size_t columns = inputs_kept + 1;  // ierr
    for (std::size_t i = 0; i < expected.size(); ++i) {
      const auto& [name, values] = expected[i];
      SCOPED_TRACE(name);
      std::istringstream line(lines[i + headings]);
      std::string word;
      line >> word;
      EXPECT_EQ(word, name);
      for (std::size_t k = 0; k < values.size(); ++k, ++columns) {
        line >> word;
        EXPECT_EQ(std::stod(word), values[k]);
        const std::string column = name + (values.size() == 1 ? "" : k == 0 ? "_liq" : "_vap");
        const auto at = std::find(header.begin(), header.end(), column) - header.begin();
        EXPECT_EQ(std::stod(fields.at(static_cast<std::size_t>(at))), values[k]);
      }
    }
    EXPECT_EQ(header.size(), columns) << rows[0];
  }
}

TEST_F(Co2, ExitStatusAndMessageTellWhatWentWrong) {
  write("no_density.csv", "temp,rho\n310,600\n");
  write("twice.csv", "temp,dens,temp\n310,600,310\n");
  write("comments.csv", "# nothing else\n\n");
  write("states.csv", "temp,dens\n310,600\n");
  write("long_line.csv", "temp,dens\n" + std::string(3000000, '1') + "\n");
  const std::vector<test::Exit> cases = {
      {"solved", "td 310 600", 0, ""},
      {"chosen columns before the inputs", "td -c pres,enth 310 600", 0, ""},
      {"two phases without heat capacities", "td 280 300 -c pres,qual", 0, ""},
      {"two phases, all outputs", "td 280 300", 0,
       "warning -101: CO2_TD: at least one property (CV, CP, or speed of sound) was requested that "
       "is not available for a two-phase fluid\n"},
      {"too cold", "td 239 600", 2,
       "error 101: CO2_TD: specified temperature below minimum value of 240 K\n"},
      {"negative temperature is no option", "td -5 600", 2, "error 101"},
      {"temperature and pressure", "tp 310 8000", 0, ""},
      {"pressure too low", "tp 310 0.5", 2,
       "error 203: CO2_TP: specified pressure below minimum value of 1 kPa\n"},
      {"two phases with viscosity", "ph 3000 300 -c visc", 0, ""},
      {"too hot", "ps 100 4.6", 2,
       "error 402: CO2_PS: specified inputs result in temperature above maximum value of 1500 K\n"},
      {"derivative that a mixture has", "td 280 300 -c ssnd_eq", 0, ""},
      {"derivative that it has not", "td 280 300 -c compr_t", 0, "warning -101"},
      {"no saturation there", "sat_p 8000", 2,
       "error 1304: CO2_SAT_P: specified pressure above critical value of 7377.3 kPa\n"},
      {"no input", "sat_t", 1, "needs temp, or --csv"},
      {"one input too many", "sat_t 280 300", 1, "not expected"},
      {"property of the saturation line", "td 280 300 -c latent_heat", 1, "latent_heat"},
      {"unit behind the number", "td 310K 600", 1, "temp is not a number: '310K'"},
      {"NaN", "td 310 nan", 1, "dens is not a number: 'nan'"},
      {"one input", "td 310", 1, "needs temp and dens"},
      {"state and file", "td 310 600 --csv x.csv", 1, "excludes"},
      {"unknown column", "td 310 600 -c volume", 1, "volume"},
      {"unknown pair", "xy 310 600", 1, ""},
      {"no such file", "td --csv missing.csv", 1, "cannot open missing.csv"},
      {"input column missing", "td --csv " + path("no_density.csv"), 1, "no column 'dens'"},
      {"input column twice", "td --csv " + path("twice.csv"), 1, "'temp' twice"},
      {"no header", "td --csv " + path("comments.csv"), 1, "no header line"},
      {"unbounded line", "td --csv " + path("long_line.csv"), 1, "line of more than"},
      {"output folder missing", "td --csv " + path("states.csv") + " -o missing/x", 1,
       "cannot open missing/x"},
      {"input as output", "td --csv " + path("states.csv") + " -o " + path("states.csv"), 1,
       "would overwrite the input"},
      {"device full", "td 310 600 >/dev/full", 1, "cannot write"},
      {"device full, file", "td --csv " + path("states.csv") + " >/dev/full", 1, "cannot write"},
  };
  for (const test::Exit& c : cases) c.expect(shell("co2 " + c.arguments));
  EXPECT_EQ(read("states.csv"), "temp,dens\n310,600\n");
}

// The specific volume of these densities is exact, so that no fit enters the expected texts.
TEST_F(Co2, RowsAreConvertedOneByOne) {
  struct Case {
    const char* why;
    const char* options;
    const char* input;
    int status;
    const char* out;
    const char* err;
  };
  const std::vector<Case> cases = {
      {"no final line end", "-c svol", "temp,dens\n400,500\n400,250", 0,
       "temp,dens,svol,ierr\n400,500,0.002,0\n400,250,0.004,0\n",
       "standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"CRLF, mark, comments, quotes, plus sign", "-c svol",
       "\xEF\xBB\xBF# a comment\r\n\r\n\"dens\", temp\r\n500,\" 400\"\r\n "
       "\t\r\n#5,\r\n250,+4e2\r\n",
       0, "\"dens\", temp,svol,ierr\n500,\" 400\",0.002,0\n250,+4e2,0.004,0\n",
       "standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"other columns stay, results replace their namesakes", "-c svol,temp,pres",
       "pres,name,dens,ierr,temp\n1,\"a, \"\"b\"\"\",500,7,100\n", 2,
       "name,dens,temp,svol,pres,ierr\n\"a, \"\"b\"\"\",500,100,,,101\n",
       "standard input:2: error 101: CO2_TD: specified temperature below minimum value of 240 K\n"
       "standard input: 1 row, 0 solved, 1 rejected, 0 unreadable\n"},
      {"bad rows are reported and the run goes on", "-c svol",
       "temp,dens\n400\n400,500,1\n400,\nx,1e999\n\n9999,500\n400,500\n", 2,
       "temp,dens,svol,ierr\n400,,,\n400,500,,\n400,,,\nx,1e999,,\n9999,500,,102\n400,500,0.002,"
       "0\n",
       "standard input:2: the number of fields is 1, in the header 2\n"
       "standard input:3: the number of fields is 3, in the header 2\n"
       "standard input:4: dens is not a number: ''\n"
       "standard input:5: temp is not a number: 'x'\n"
       "standard input:5: dens is not a number: '1e999'\n"
       "standard input:7: error 102: CO2_TD: specified temperature above maximum value of 1500 K\n"
       "standard input: 6 rows, 1 solved, 1 rejected, 4 unreadable\n"},
      {"warnings are counted", "-c svol,cp", "temp,dens\n280,250\n280,500\n", 0,
       "temp,dens,svol,cp,ierr\n280,250,0.004,0,-101\n280,500,0.002,0,-101\n",
       "standard input:2: warning -101 (2 rows in all): CO2_TD: at least one property (CV, CP, or "
       "speed of sound) was requested that is not available for a two-phase fluid\n"
       "standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"digits: shortest exact", "-c svol", "temp,dens\n400,300\n", 0,
       "temp,dens,svol,ierr\n400,300,0.0033333333333333335,0\n",
       "standard input: 1 row, 1 solved, 0 rejected, 0 unreadable\n"},
      {"digits: some", "-c svol -d 3", "temp,dens\n400,300\n", 0,
       "temp,dens,svol,ierr\n400,300,0.00333,0\n",
       "standard input: 1 row, 1 solved, 0 rejected, 0 unreadable\n"},
      {"header alone", "-c svol", "temp,dens", 0, "temp,dens,svol,ierr\n",
       "standard input: 0 rows, 0 solved, 0 rejected, 0 unreadable\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.why);
    const Outcome outcome = shell(std::string("co2 td --csv - ") + c.options, c.input);
    EXPECT_EQ(outcome.status, c.status);
    EXPECT_EQ(outcome.out, c.out);
    EXPECT_EQ(outcome.err, c.err);
  }
}

// Enough rows for several blocks and threads; the line numbers of bad rows cross their borders.
TEST_F(Co2, ResultsDoNotDependOnHowTheFileIsCut) {
  std::ostringstream text;
  text << "dens,temp\n";
  for (int i = 0; i < 60000; ++i) {
    if (i % 10000 == 9999) text << "bad\n";
    text << 0.5 + 0.0001 * i << ',' << 400 + i % 1000 << (i % 7 == 0 ? "\r\n" : "\n");
  }
  write("states.csv", text.str());
  const std::string run = "co2 td -c svol,pres --csv ";
  const Outcome one = shell(run + path("states.csv") + " -j 1");
  EXPECT_EQ(one.status, 2);
  EXPECT_EQ(split(one.out, '\n').size(), 60007U);
  EXPECT_NE(one.err.find("states.csv:60006: the number of fields is 1"), std::string::npos)
      << one.err;
  for (const char* const way : {"3", "7"}) {
    const Outcome many = shell(run + path("states.csv") + " -j " + way);
    EXPECT_TRUE(many.out == one.out) << way << " threads";
    EXPECT_EQ(many.err, one.err);
  }
  const Outcome piped =
      shell("cat " + path("states.csv") + " | " + run + "- -j 2 -o " + path("out"));
  EXPECT_EQ(piped.out, "");
  EXPECT_TRUE(read("out") == one.out) << "through a pipe";
}

TEST_F(Co2, BadRowsDoNotFloodTheScreen) {
  std::string text = "temp,dens\n";
  for (int i = 0; i < 250; ++i) text += "?,1\n";
  const Outcome outcome = shell("co2 td -c svol --csv -", text);
  const std::vector<std::string> reports = split(outcome.err, '\n');
  ASSERT_EQ(reports.size(), 102U);
  EXPECT_EQ(reports[99], "standard input:101: temp is not a number: '?'");
  EXPECT_EQ(reports[101], "standard input: 250 rows, 0 solved, 0 rejected, 250 unreadable");
  EXPECT_EQ(split(outcome.out, '\n').size(), 251U);
}

// Each step replaces what it computes: the densities and temperatures at the end are new.
// None of the states lies at the edge of an element, where two of them answer.
TEST_F(Co2, ThePairsLeadAroundToTheSameStates) {
  std::string command;
  for (const char* const step :
       {"td --csv - -c pres", "tp --csv - -c enth", "ph --csv - -c entr", "ps --csv - -c inte",
        "pu --csv - -c dens", "du --csv - -c enth", "dh --csv - -c entr", "ds --csv - -c pres",
        "dp --csv - -c enth", "hs --csv - -c temp", "ts --csv - -c dens"}) {
    command += std::string(command.empty() ? "" : " 2>/dev/null | ") + "co2 " + step;
  }
  const Outcome outcome = shell(command, "temp,dens\n313,600\n280,31\n260,1100\n");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "standard input: 3 rows, 3 solved, 0 rejected, 0 unreadable\n");
  const std::vector<std::string> rows = split(outcome.out, '\n');
  ASSERT_EQ(rows.size(), 4U);
  EXPECT_EQ(rows[0], "inte,entr,pres,enth,temp,dens,ierr");
  const std::pair<double, double> expected[] = {{313.0, 600.0}, {280.0, 31.0}, {260.0, 1100.0}};
  for (std::size_t i = 0; i < 3; ++i) {
    const std::vector<std::string> fields = split(rows[i + 1], ',');
    const auto& [temp, dens] = expected[i];
    EXPECT_NEAR(std::stod(fields.at(4)), temp, 1e-9 * temp);
    EXPECT_NEAR(std::stod(fields.at(5)), dens, 1e-9 * dens);
  }
}

TEST_F(Co2, FilesOfSaturationHaveOneInput) {
  const Outcome outcome =
      shell("co2 sat_t --csv - -c temp,qual", "qual_liq,x,temp\n7,a,280\n7,b,?\n7,c,305\n");
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.out, "x,temp,qual_liq,qual_vap,ierr\na,280,0,1,0\nb,?,,,\nc,305,,,1202\n");
  EXPECT_EQ(
      outcome.err,
      "standard input:3: temp is not a number: '?'\n"
      "standard input:4: error 1202: CO2_SAT_T: specified temperature above critical value of "
      "304.1282 K\n"
      "standard input: 3 rows, 1 solved, 1 rejected, 1 unreadable\n");
}

TEST_F(Co2, InfoListsTheConstants) {
  std::string listed;
  for (const std::string& line : split(shell("co2 info").out, '\n')) {
    std::istringstream words(line);
    std::string name, number;
    words >> name >> number;
    listed += name + ' ' + number + ' ';
  }
  EXPECT_EQ(listed,
            "tcrit 304.1282 dcrit 467.6 pcrit 7377.3 tmin 240 tmax 1500 pmin 1 pmax 100000 "
            "tsatmin 240 psatmin 1282.4835 ");
}

TEST_F(Co2, ExamplesOfTheHelpRun) {
  int examples = 0;
  std::vector<std::string> helps = {"co2 --help"};
  for (std::size_t i = 0; i < helps.size(); ++i) {
    const std::string text = shell(helps[i]).out;
    const std::size_t start = text.find("Examples:\n");
    ASSERT_NE(start, std::string::npos) << helps[i];
    for (const std::string& line : split(text.substr(start), '\n')) {
      if (line.find("  co2 ") != 0 && line.find("| co2 ") == std::string::npos) continue;
      const Outcome outcome = shell(line);
      EXPECT_EQ(outcome.status, 0) << line << '\n' << outcome.err;
      EXPECT_FALSE(outcome.out.empty());
      ++examples;
      const std::string name = split(line, ' ').at(3);
      if (i == 0 && name != "info") helps.push_back("co2 " + name + " --help");
    }
  }
  EXPECT_EQ(examples, 16 + 3 * 15);
}

}  // namespace
}  // namespace co2_properties
