#include "numbers/platform.hpp"

#include "saturation/sat_density.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "cells/cell_map.hpp"
#include "co2_properties/limits.hpp"
#include "numbers/elementary.hpp"
#include "numbers/lanes.hpp"
#include "saturation/quintic.hpp"

namespace co2_properties {
namespace {

// Up to 301 K: quintics in t = T - temp0, on the same sixteen intervals for both phases.

constexpr std::int32_t quintic_count = 16;
constexpr double quintic_end = 301.0;  // K, inclusive
constexpr double quintic_edges[quintic_count - 1] = {255.0, 265.0, 275.0, 280.0, 285.0,
                                                     290.0, 293.0, 295.0, 296.0, 297.0,
                                                     298.0, 299.0, 299.5, 300.0, 300.5};
constexpr Axis quintic_axis(quintic_edges, quintic_count - 1);

// Origins in K, coefficients in kg/m3 K^-k.
constexpr Quintic liquid_quintics[quintic_count] = {
    {240.0,
     {1088.869234090836, -4.121071246538901, -0.01526562904891705, -0.0001425047864296672,
      -1.494281140033184e-6, -2.37491423666862e-8}},
    {255.0,
     {1023.043762714847, -4.701415145898453, -0.02449715753217253, -0.0002867905571636174,
      -3.151178521955123e-6, -7.121488092225874e-8}},
    {265.0,
     {973.25447167217, -5.293560921824922, -0.03570373016947671, -0.0004983216284343089,
      -6.328379443302431e-6, -2.996253660534423e-7}},
    {275.0,
     {916.1569214775004, -6.197426799820631, -0.05744666034902186, -0.001081259044645355,
      -1.935364076112417e-5, -1.149375652095552e-6}},
    {280.0,
     {883.5827757647025, -6.866256450952612, -0.07800531169799026, -0.001751460301541292,
      -4.735029891458853e-5, -2.069693020494978e-6}},
    {285.0,
     {847.0463664522864, -7.807812030694452, -0.1139668773339166, -0.003299045410619955,
      -9.168344010943353e-5, -7.062358366674238e-6}},
    {290.0,
     {804.6663816691745, -9.262820799780691, -0.1860330224679738, -0.007144824224877692,
      -0.0002242676899546605, -3.428477199487817e-5}},
    {293.0,
     {774.9842149310679, -10.61003543183326, -0.2717037841880418, -0.01301785304396864,
      -0.0006592349559475514, -0.0001021952372586289}},
    {295.0,
     {752.55936809941, -11.88233594268406, -0.3738081603752852, -0.02148524342376682,
      -0.0026402505572225, 0.0001936029568501137}},
    {296.0,
     {740.2792921053265, -12.70400098115057, -0.4521693644214195, -0.03048199200976043,
      -0.002819195919975926, -0.000189948786704974}},
    {297.0,
     {727.0896306230381, -13.71201221363612, -0.5624300038376061, -0.04332379713579811,
      -0.004931618965317242, -5.023004830739799e-5}},
    {298.0,
     {712.766882759415, -14.98682123882153, -0.7224934095199779, -0.06697016564809002,
      -0.004508544312109571, -0.001806063379000019}},
    {299.0,
     {696.9842833377343, -16.6597830489492, -0.9685158061269056, -0.1035089905415691,
      -0.008567044423244862, -0.004952029426647178}},
    {299.5,
     {688.3986340467142, -17.71176162938973, -1.142819895357436, -0.1375256885537732,
      -0.002611473887640197, -0.01687655598203716}},
    {300.0,
     {679.2391669376183, -18.96430545185071, -1.374121333997102, -0.1717895057807951,
      -0.03866268512979332, 0.001353026164451874}},
    {300.5,
     {669.389636054218, -20.48617743707191, -1.68810833765742, -0.2448382701857185,
      -0.05247304679110699, -0.007675291287739569}},
};

constexpr Quintic vapour_quintics[quintic_count] = {
    {240.0,
     {33.29513442212512, 1.153853149437122, 0.01648263868793949, 0.0001483526844075207,
      1.094121762963171e-6, 2.785064763667068e-8}},
    {255.0,
     {54.88875467814282, 1.770290711033418, 0.02557553322401585, 0.0002815985390278095,
      3.134107128397734e-6, 8.6240259012757e-8}},
    {265.0,
     {75.47077874709164, 2.383129378686307, 0.03676635626201634, 0.0005037799115164119,
      6.602104230070544e-6, 2.803755216951517e-7}},
    {275.0,
     {103.576546666143, 3.310017670386596, 0.05864477136250254, 0.001078152979181396,
      1.97763851956273e-5, 1.013072584427288e-6}},
    {280.0,
     {121.7430495171098, 3.990380901874376, 0.0790498645601017, 0.001739096287306224,
      4.432360363560761e-5, 2.02989802019371e-6}},
    {285.0,
     {143.9226333599829, 4.939817002154268, 0.1143222219402783, 0.003249657398882895,
      8.139898645113552e-5, 8.268758188952674e-6}},
    {290.0,
     {171.9626953299939, 6.393302889039314, 0.1856128786273829, 0.00716935435701719,
      0.0002362860964037195, 3.521007691500885e-5}},
    {293.0,
     {193.0343876948969, 7.740331708005256, 0.2724032378133909, 0.01293412246849976,
      0.0008296934973477386, 5.227750142178249e-5}},
    {295.0,
     {209.723085017912, 9.015886520909687, 0.3741028166744778, 0.02461051881519984,
      -0.002224018861090463, 0.001656560292614625}},
    {296.0,
     {219.1371174157429, 9.837310436722953, 0.4511558628796807, 0.03337867712619184,
      -0.004091344694739249, 0.003277659240520586}},
    {297.0,
     {229.4581487070175, 10.83978111128454, 0.5595204184950267, 0.03574569121190052,
      0.009541256050159314, -0.001249051446965408}},
    {298.0,
     {240.9014881326121, 12.0979787888761, 0.71151451396203, 0.06008923365002967,
      0.009668855710570412, -0.0001425481373953372}},
    {299.0,
     {253.7805969766735, 13.73923819990556, 0.9483698678015882, 0.1071363264849763,
      -0.01954373472584328, 0.03754034209063654}},
    {299.5,
     {260.9006522366573, 14.76991980211128, 1.126684183053583, 0.1080754886923296,
      0.04651611024175394, -0.001991405305659551}},
    {300.0,
     {268.5836376450372, 16.00029634264697, 1.356082324822634, 0.1457639790082137,
      0.09594688165455514, -0.03980126090237938}},
    {300.5,
     {276.9457797856426, 17.50123719852105, 1.668897039688813, 0.2831646714978962,
      -0.06213455669615062, 0.1172369796452129}},
};

double evaluate_quintics(const Quintic (&quintics)[quintic_count], const double temp) noexcept {
  return evaluate_quintic(quintics[interval(quintic_axis, temp)], temp);
}

// Above 301 K: depressed cubics for y = rho - dens_node - shift, whose constant term is linear in
// T. The density is one of their roots, written down in closed form with the linear coefficient
// `c` and the constant term `q`.

struct Cubic {
  double slope;  // q = slope * T - offset
  double offset;
  double c_cubed;    // discriminant q^2 - c^3; negative where a single real root is certain
  double c;          // carries the sign of c_cubed
  double shift;      // kg/m3
  double root_c;     // 1 / sqrt(c^3); where the discriminant can change its sign
  double amplitude;  // 2 sqrt(c); likewise
  double dens_node;  // kg/m3
};

// Liquid cubic k serves temperatures up to liquid_cubic_ends[k], the last one all above.
constexpr std::int32_t liquid_cubic_count = 6;
constexpr double liquid_cubic_ends[liquid_cubic_count - 1] = {
    302.2341055306648, 303.1129293775182, 303.6795284857335, 303.9936195043181, 304.1143631777277};
constexpr Cubic liquid_cubics[liquid_cubic_count] = {
    {2638009.864690132, 795360167.2915375, 44254319449238.19, 35371.37062221394, -305.6878823596954,
     1.503218689696314e-7, 376.1455602407873, 626.8419969213044},
    {2242525.360499416, 678728879.1585658, 9342845431996.281, 21061.68216318349, -233.5364400919581,
     3.271601646072794e-7, 290.2528701886235, 594.9935977933915},
    {1791246.320202077, 544150878.949544, 316398483491.3789, 6814.146468855945, -151.3313065623973,
     1.777799596848395e-6, 165.0956870285344, 563.1451986654786},
    {2189557.401862824, 664660755.656116, 1452918518018.069, 11326.10072814231, -144.1922600025283,
     8.296203003794669e-7, 212.8483096305189, 531.2967995375657},
    {1653962.308371157, 502787579.7245204, 48097136865.63091, 3636.691053248819, -72.01043370806461,
     4.559743236393785e-6, 120.6099673036821, 499.4484004096528},
    {946690.0251339518, 287915141.3818618, 65.285079384868, 4.026595268214941, 2.006637801950045,
     0.1237636279910247, 4.013275603900107, 467.6000012817399},
};

// Vapour cubic k serves temperatures below vapour_cubic_ends[k]; an end belongs to the piece above.
constexpr std::int32_t vapour_cubic_count = 5;
constexpr double vapour_cubic_ends[vapour_cubic_count - 1] = {
    302.5164883654834, 303.43534193209916, 303.91610050434275, 304.10153012365777};
constexpr Axis vapour_cubic_axis(vapour_cubic_ends, vapour_cubic_count - 1);
constexpr Cubic vapour_cubics[vapour_cubic_count] = {
    {-823952.8849581947, -250703619.7869157, -18403887211.66774, -2640.198141486856,
     160.2864511480349, 0.0, 0.0, 286.148798474583},
    {-891997.9661348581, -271342714.3214081, -2632845055.659235, -1380.83493821201,
     134.618684472454, 0.0, 0.0, 322.4390390360144},
    {-999941.2790501725, -304129169.2817748, -20255711.36693219, -272.5937118060942,
     110.0628672527917, 0.0, 0.0, 358.7292795974457},
    {-1106162.844748401, -336401817.5520874, 110582519.2893553, 479.9862833021195,
     82.47467320783029, 9.509479796813823e-5, 43.81717851720348, 395.0195201588771},
    {-853250.5438768299, -259497552.2508138, 0.03706877455563026, 0.3334285187057604,
     35.71280786517494, 5.193927527225227, 1.154865392512496, 431.3097607203085},
};

constexpr bool agree(const double left, const double right) noexcept {
  constexpr double tolerance = 1e-14;
  const double scale = right < 0.0 ? -right : right;
  return left - right <= tolerance * scale && right - left <= tolerance * scale;
}

// The derived constants of each row are those of its `c`.
template <std::int32_t count>
constexpr bool relations_hold(const Cubic (&cubics)[count]) noexcept {
  return std::all_of(std::begin(cubics), std::end(cubics), [](const Cubic& piece) {
    return agree(piece.c * piece.c * piece.c, piece.c_cubed) &&
           (piece.c < 0.0 || (agree(piece.amplitude * piece.amplitude, 4.0 * piece.c) &&
                              agree(piece.root_c * piece.root_c * piece.c_cubed, 1.0)));
  });
}
static_assert(relations_hold(liquid_cubics) && relations_hold(vapour_cubics));

/// Root of y^3 - 3 c y + 2 q = 0: the only one or, of three, the largest.
double solve_cubic(const Cubic& piece, const double temp) noexcept {
  const double q = piece.slope * temp - piece.offset;
  const double discriminant = q * q - piece.c_cubed;
  double y;
  if (q * q >= piece.c_cubed) {
    const double s = cube_root(absolute(q) + root(discriminant));
    const double sum = piece.c / s + s;
    y = (q < 0.0 ? sum : -sum) + piece.shift;
  } else {
    y = piece.shift + piece.amplitude * cosine_of_third(-piece.root_c * q);
  }
  return y + piece.dens_node;
}

}  // namespace

double calc_sat_liq_dens(const double& temp) noexcept {
  if (temp <= quintic_end) return evaluate_quintics(liquid_quintics, temp);
  if (temp == t_crit) return d_crit;
  std::int32_t piece = 0;
  for (const double end : liquid_cubic_ends) piece += static_cast<std::int32_t>(temp > end);
  return solve_cubic(liquid_cubics[piece], temp);
}

double calc_sat_vap_dens(const double& temp) noexcept {
  if (temp <= quintic_end) return evaluate_quintics(vapour_quintics, temp);
  if (temp == t_crit) return d_crit;
  const std::int32_t piece = interval(vapour_cubic_axis, temp);
  return solve_cubic(vapour_cubics[piece], temp);
}

}  // namespace co2_properties
