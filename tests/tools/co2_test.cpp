// The command line, run as its users run it: through the shell, from the root of the project.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <map>
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

/// A number as the tool writes it; what a state has not is zero in the library.
double number(const std::string& text) {
  return text.empty() || text == "-" ? 0.0 : std::stod(text);
}

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
        EXPECT_EQ(number(word), values[k]);
        const std::string column = name + (values.size() == 1 ? "" : k == 0 ? "_liq" : "_vap");
        const auto at = std::find(header.begin(), header.end(), column) - header.begin();
        EXPECT_EQ(number(fields.at(static_cast<std::size_t>(at))), values[k]);
      }
    }
    EXPECT_EQ(header.size(), columns) << rows[0];
  }
}

TEST_F(Co2, ExitStatusAndMessageTellWhatWentWrong) {
  write("no_density.csv", "temp,rho\n310,600\n");
  write("twice.csv", "temp,dens,temp\n310,600,310\n");
  write("tabs.csv", "temp\tdens\n310\t600\n");
  write("comments.csv", "# nothing else\n\n");
  write("states.csv", "temp,dens\n310,600\n");
  write("unclosed.csv", "temp,dens,x\n310,600,\"x\n310,600,x\n");
  write("open_header.csv", "temp,dens,\"x\n310,600,x\n");
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
      {"one input too many", "sat_t 280 300", 1, "co2: The following argument was not expected"},
      {"property of the saturation line", "td 280 300 -c latent_heat", 1, "latent_heat"},
      {"wrong unit", "td 310kg 600", 1, "temp is not a number: '310kg' (units: K, C, degC)"},
      {"NaN", "td 310 nan", 1, "dens is not a number: 'nan'"},
      {"one input", "td 310", 1, "needs temp and dens"},
      {"state and file", "td 310 600 --csv x.csv", 1, "excludes"},
      {"unknown column", "td 310 600 -c pras", 1, "no property 'pras'; did you mean 'pres'?"},
      {"unknown pair", "tpp 310 600", 1, "co2: no subcommand 'tpp'; did you mean 'tp'?"},
      {"quiet about a warning", "td 280 300 --quiet", 0, ""},
      {"not about an error", "td 239 600 --quiet", 2, "co2: error 101"},
      {"unit of something else", "td 310 600kPa", 1, "(units: kg/m3, g/cm3)"},
      {"range that leads nowhere", "td 310 600:500:10", 1, "does not reach the stop"},
      {"range without a step", "td 310 600:500", 1, "dens is not a range start:stop:step"},
      {"range with three units", "td 27C:37C:5C 600", 1, "a unit at its end alone: '27C:37C:5C'"},
      {"endless range", "td 300:1e12:1 600", 1, "more than 4000000000 steps"},
      {"range beyond the limits", "td 310:200:-100 600", 2, "co2: range:3: error 101 (1 row)"},
      {"two delimiters", "td --csv " + path("states.csv") + " --delimiter ,,", 1, "one character"},
      {"no such input", "td --csv " + path("states.csv") + " --map T=pres", 1, "temp or dens"},
      {"unclosed quote", "td --csv " + path("unclosed.csv"), 2,
       "unclosed.csv:2: a quote is not closed: '\"x...'"},
      {"unclosed quote of the header", "td --csv " + path("open_header.csv"), 1,
       "not closed: '\"x...'"},
      {"no such file", "td --csv missing.csv", 1, "cannot open missing.csv"},
      {"input column missing", "td --csv " + path("no_density.csv"), 1,
       "no_density.csv: no column 'dens' (density, kg/m3) in the header 'temp,rho'; the nearest "
       "name is 'rho', which --map rho=dens takes"},
      {"another delimiter", "td --csv " + path("tabs.csv"), 1, "--delimiter says"},
      {"delimiter of numbers", "td --csv " + path("states.csv") + " --delimiter .", 1, "neither"},
      {"input column twice", "td --csv " + path("twice.csv"), 1, "'temp' twice"},
      {"no header", "td --csv " + path("comments.csv"), 1, "no header line"},
      {"unbounded line", "td --csv " + path("long_line.csv"), 1, "field of more than"},
      {"output folder missing", "td --csv " + path("states.csv") + " -o missing/x", 1,
       "cannot open missing/x"},
      {"input as output", "td --csv " + path("states.csv") + " -o " + path("states.csv"), 1,
       "would overwrite the input"},
      {"device full", "td 310 600 >/dev/full", 1, "cannot write"},
      {"device full, file", "td --csv " + path("states.csv") + " >/dev/full", 1, "cannot write"},
  };
  for (const test::Exit& c : cases) {
    const Outcome outcome = shell("co2 " + c.arguments);
    c.expect(outcome);
    for (const std::string& line : split(outcome.err, '\n')) EXPECT_EQ(line.rfind("co2: ", 0), 0U);
  }
  EXPECT_EQ(read("states.csv"), "temp,dens\n310,600\n");
  EXPECT_EQ(shell("co2").out, shell("co2 --help").out);
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
       "co2: standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"CRLF, mark, comments, quotes, plus sign", "-c svol",
       "\xEF\xBB\xBF# a comment\r\n\r\n\"dens\", temp\r\n500,\" 400\"\r\n "
       "\t\r\n#5,\r\n250,+4e2\r\n",
       0, "\"dens\", temp,svol,ierr\n500,\" 400\",0.002,0\n250,+4e2,0.004,0\n",
       "co2: standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"other columns stay, results replace their namesakes", "-c svol,temp,pres",
       "pres,name,dens,ierr,temp\n1,\"a, \"\"b\"\"\",500,7,100\n", 2,
       "name,dens,temp,svol,pres,ierr\n\"a, \"\"b\"\"\",500,100,,,101\n",
       "co2: standard input:2: error 101 (1 row): CO2_TD: specified temperature below minimum "
       "value of 240 K\n"
       "co2: standard input: 1 row, 0 solved, 1 rejected, 0 unreadable\n"},
      {"bad rows are reported and the run goes on", "-c svol",
       "temp,dens\n400\n400,500,1\n400,\nx,1e999\n\n9999,500\n400,500\n", 2,
       "temp,dens,svol,ierr\n400,,,\n400,500,,\n400,,,\nx,1e999,,\n9999,500,,102\n400,500,0.002,"
       "0\n",
       "co2: standard input:2: the number of fields is 1, in the header 2\n"
       "co2: standard input:3: the number of fields is 3, in the header 2\n"
       "co2: standard input:4: dens is not a number: ''\n"
       "co2: standard input:5: temp is not a number: 'x'\n"
       "co2: standard input:5: dens is not a number: '1e999'\n"
       "co2: standard input:7: error 102 (1 row): CO2_TD: specified temperature above maximum "
       "value of 1500 K\n"
       "co2: standard input: 6 rows, 1 solved, 1 rejected, 4 unreadable\n"},
      {"warnings are counted", "-c svol,cp", "temp,dens\n280,250\n280,500\n", 0,
       "temp,dens,svol,cp,ierr\n280,250,0.004,,-101\n280,500,0.002,,-101\n",
       "co2: standard input:2: warning -101 (2 rows, lines 2, 3): CO2_TD: at least one property "
       "(CV, CP, or "
       "speed of sound) was requested that is not available for a two-phase fluid\n"
       "co2: standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"digits: shortest exact", "-c svol", "temp,dens\n400,300\n", 0,
       "temp,dens,svol,ierr\n400,300,0.0033333333333333335,0\n",
       "co2: standard input: 1 row, 1 solved, 0 rejected, 0 unreadable\n"},
      {"digits: some", "-c svol -d 3", "temp,dens\n400,300\n", 0,
       "temp,dens,svol,ierr\n400,300,0.00333,0\n",
       "co2: standard input: 1 row, 1 solved, 0 rejected, 0 unreadable\n"},
      {"Fortran and units", "-c svol", "temp,dens\n4D+2,500d0\n126.85C,0.5 g/cm3\n", 0,
       "temp,dens,svol,ierr\n4D+2,500d0,0.002,0\n126.85C,0.5 g/cm3,0.002,0\n",
       "co2: standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"names and delimiter of another program", "-c svol --map T=temp,rho=dens --delimiter ';'",
       "rho;a,b;T\n500;x,y;400\n", 0, "rho;a,b;T;svol;ierr\n500;x,y;400;0.002;0\n",
       "co2: standard input: 1 row, 1 solved, 0 rejected, 0 unreadable\n"},
      {"line ends within quotes", "-c svol", "temp,dens,\"a\nb\"\n400,500,\" \"\",\n\"\n?,1,\n", 2,
       "temp,dens,\"a\nb\",svol,ierr\n400,500,\" \"\",\n\",0.002,0\n?,1,,,\n",
       "co2: standard input:5: temp is not a number: '?'\n"
       "co2: standard input: 2 rows, 1 solved, 0 rejected, 1 unreadable\n"},
      {"a quote within a field is a letter", "-c svol", "temp,dens,d\n400,500,5\"\n400,250,\n", 0,
       "temp,dens,d,svol,ierr\n400,500,5\",0.002,0\n400,250,,0.004,0\n",
       "co2: standard input: 2 rows, 2 solved, 0 rejected, 0 unreadable\n"},
      {"JSON", "-c svol,cp --json -q --si",
       "temp,dens,\"a \"\"b\"\"\"\n280,+5d2,x\\y\n?,1,20000000000000000001\n9,1,007\n9,.5,\n", 2,
       "{\"temp\":280,\"dens\":500,\"a "
       "\\\"b\\\"\":\"x\\\\y\",\"svol\":0.002,\"cp\":null,\"ierr\":-101}\n"
       "{\"temp\":\"?\",\"dens\":1,\"a "
       "\\\"b\\\"\":20000000000000000001,\"svol\":null,\"cp\":null,\"ierr\":null}\n"
       "{\"temp\":9,\"dens\":1,\"a \\\"b\\\"\":\"007\",\"svol\":null,\"cp\":null,\"ierr\":101}\n"
       "{\"temp\":9,\"dens\":0.5,\"a \\\"b\\\"\":\"\",\"svol\":null,\"cp\":null,\"ierr\":101}\n",
       ""},
      {"header alone", "-c svol", "temp,dens", 0, "temp,dens,svol,ierr\n",
       "co2: standard input: 0 rows, 0 solved, 0 rejected, 0 unreadable\n"},
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
  ASSERT_EQ(reports.size(), 12U);
  EXPECT_EQ(reports[9], "co2: standard input:11: temp is not a number: '?'");
  EXPECT_EQ(reports[11], "co2: standard input: 250 rows, 0 solved, 0 rejected, 250 unreadable");
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
  EXPECT_EQ(outcome.err, "co2: standard input: 3 rows, 3 solved, 0 rejected, 0 unreadable\n");
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
      "co2: standard input:3: temp is not a number: '?'\n"
      "co2: standard input:4: error 1202 (1 row): CO2_SAT_T: specified temperature above critical "
      "value of 304.1282 K\n"
      "co2: standard input: 3 rows, 1 solved, 1 rejected, 1 unreadable\n");
}

// The numbers at other units are those at the library's own, multiplied.
TEST_F(Co2, RangesAndUnits) {
  struct Case {
    const char* why;
    const char* arguments;
    const char* out;
  };
  for (const auto& [why, arguments, out] : std::vector<Case>{
           {"products, the last input first", "td 400:401:1 250:500:250 -c svol",
            "temp,dens,svol,ierr\n400,250,0.004,0\n400,500,0.002,0\n401,250,0.004,0\n"
            "401,500,0.002,0\n"},
           {"steps that binary numbers have not", "td 400 0.1:0.3:0.1 -c temp",
            "temp,dens,ierr\n400,0.1,0\n400,0.2,0\n400,0.3,0\n"},
           {"the limit in another unit", "tp -33.15:-33.05:0.1C 100 -c temp",
            "temp,pres,ierr\n240,100,0\n240.1,100,0\n"},
           {"downwards, a stop between steps", "td 400.5:399:-1 500 -c svol",
            "temp,dens,svol,ierr\n400.5,500,0.002,0\n399.5,500,0.002,0\n"},
           {"a unit behind the range, SI", "tp 100:110:10C 1:2:1bar -c pres,temp --si",
            "temp,pres,ierr\n373.15,100000,0\n373.15,200000,0\n383.15,100000,0\n"
            "383.15,200000,0\n"},
           {"on the screen", "td 126.85C 500 -c temp,svol --si -d 3",
            "temp    400      K              temperature\n"
            "svol      0.002  m3/kg          specific volume\n"},
           {"what a mixture has not", "td 280 500 -c svol,cp -q",
            "svol    0.002  m3/kg          specific volume\n"
            "cp      -      kJ/(kg K)      isobaric heat capacity\n"},
           {"saturation by the unit: temperature", "sat 280 -c temp --json -q",
            "{\"temp\":280,\"ierr\":0}\n"},
           {"saturation by the unit: pressure", "sat 3:4:0.5MPa -c pres --json -q",
            "{\"pres\":3000,\"ierr\":0}\n{\"pres\":3500,\"ierr\":0}\n{\"pres\":4000,\"ierr\":0}"
            "\n"}}) {
    SCOPED_TRACE(why);
    const Outcome outcome = shell(std::string("co2 ") + arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, out);
    EXPECT_EQ(outcome.err, "");
  }
  // Every unit of every output, where the factor follows from another way to write it.
  const std::vector<std::string> own = split(shell("co2 td 310 600 -d 17").out, '\n');
  const std::vector<std::string> si = split(shell("co2 td 310 600 -d 17 --si").out, '\n');
  const std::map<std::string, double> factors = {
      {"pres", 1e3}, {"inte", 1e3},  {"enth", 1e3}, {"entr", 1e3}, {"cv", 1e3},
      {"cp", 1e3},   {"visc", 1e-6}, {"dpdd", 1e3}, {"dpdt", 1e3}, {"dhdd", 1e3},
      {"dhdt", 1e3}, {"dsdd", 1e3},  {"dsdt", 1e3}};
  ASSERT_EQ(own.size(), si.size());
  for (std::size_t i = 0; i < own.size(); ++i) {
    std::istringstream line(own[i]), line_si(si[i]);
    std::string name;
    double value = 0.0, value_si = 0.0;
    line >> name >> value;
    line_si >> name >> value_si;
    const auto found = factors.find(name);
    const double factor = found == factors.end() ? 1.0 : found->second;
    EXPECT_NEAR(value_si, factor * value, 1e-15 * std::abs(value_si)) << name;
  }
}

// The name of the results appears with the last of them.
TEST_F(Co2, NoHalfFileStays) {
  write("out", "old");
  const std::string run = "co2 td 300:1500:0.001 1:2:0.001 -c svol -o " + path("out");
  const Outcome outcome =
      shell(run + " & pid=$!; while ! ls -A '" + path("") +
            "' | grep -q '^.out.'; do sleep 0.01; done; kill -TERM $pid; wait $pid");
  EXPECT_EQ(outcome.status, 128 + 15);
  EXPECT_EQ(read("out"), "old");
  EXPECT_EQ(shell("ls -A '" + path("") + "'").out, "out\nstderr\nstdin\nstdout\n");
  EXPECT_EQ(
      shell("ln -s out '" + path("link") + "' && co2 td 400:401:1 500 -c svol -o " + path("link"))
          .status,
      0);
  EXPECT_EQ(read("out"), "temp,dens,svol,ierr\n400,500,0.002,0\n401,500,0.002,0\n");
}

TEST_F(Co2, ShellsCompleteWhatTheHelpLists) {
  const std::string bash =
      "exec 2>/dev/null; . tools/co2/completion.bash; complete_words() { COMP_WORDS=(\"$@\"); "
      "COMP_CWORD=$(($# - 1)); _co2; printf '%s\\n' \"${COMPREPLY[@]}\"; }; complete_words co2 ";
  const auto completed = [&](const std::string& words) {
    write("complete.bash", bash + words);
    return shell("bash '" + path("complete.bash") + "'").out;
  };
  const std::string long_options =
      "co2 td --help | grep -oE -- '^ .*--[a-z]+ ?' | grep -oE -- '--[a-z]+' | sort -u";
  const std::string options = shell(long_options).out;
  EXPECT_GE(split(options, '\n').size(), 11U);
  write("options", completed("td -- | sort"));
  EXPECT_EQ(read("options"), options);
  EXPECT_EQ(completed("t"), "td\ntp\nts\ntx\n");
  EXPECT_EQ(completed("sat -c cp,lat"), "cp,latent_heat\n");
  EXPECT_EQ(completed("'' | grep -v '^-' | sort"),
            shell("co2 --help | sed -n '/^Subcommands/,/^Examples/p' | grep -oE '^  [a-z_]+' | "
                  "tr -d ' ' | sort -u")
                .out);
  if (shell("command -v zsh").status != 0) GTEST_SKIP() << "no zsh";
  const std::string zsh =
      "zsh -fc 'compadd() { print -l -- ${@:#-*} }; _arguments() { print -l -- $@ }; "
      "words=(co2 ''$1'' ''$2''); CURRENT=$(($# + 1)); . tools/co2/completion.zsh' co2 ";
  EXPECT_EQ(shell(zsh + "t | sort").out, completed("'' | grep -v '^-' | sort"));
  EXPECT_EQ(shell(zsh + "td x | grep -oE -- '--[a-z]+[[]' | tr -d '[' | sort -u").out, options);
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
      if (i == 0 && name != "info" && name != "sat") helps.push_back("co2 " + name + " --help");
    }
  }
  EXPECT_EQ(examples, 17 + 4 * 15);
}

}  // namespace
}  // namespace co2_properties
