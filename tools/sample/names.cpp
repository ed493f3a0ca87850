#include "tools/sample/names.h"

#include <array>

#include "tools/sample/random.h"

namespace dg::sample {

namespace {

using Words = std::string_view;

constexpr std::array<Words, 32> kFirstNames = {
    "ADA",     "BRAM", "CLEO",  "DORIS", "EDGAR",  "FLORA",  "GRANT", "HEDDA",
    "IVOR",    "JUNE", "KEITH", "LENA",  "MILES",  "NORA",   "OSCAR", "PEARL",
    "QUENTIN", "ROSA", "SIMON", "TESS",  "URSULA", "VERN",   "WANDA", "XAVIER",
    "YVONNE",  "ZEKE", "ALMA",  "BASIL", "CORA",   "DUNCAN", "ELSIE", "FELIX"};

constexpr std::array<Words, 40> kLastNames = {
    "ABERNOY",  "BRINDLEM",  "CASTORFF",  "DUNWICKE",  "ELVERTON", "FARNSBEE", "GALDERY",
    "HOLLOWIN", "INGERBY",   "JASTROW",   "KELMARSH",  "LINDQUAY", "MARBLETT", "NORQUIST",
    "OAKENDEN", "PELLABY",   "QUILLER",   "RAMSGROVE", "STADWELL", "TARRINGE", "UPWARDEN",
    "VANTHORP", "WEXBURN",   "YARROWAY",  "ZELLIGER",  "ASHMOND",  "BOTTERIL", "CRANDOWE",
    "DELLAMAR", "EASTERLEY", "FENHOLT",   "GRISBANE",  "HARTWIG",  "ISHERBEE", "JOLIFFER",
    "KNAPWOOD", "LOXTERMAN", "MIDDLEHAM", "NETHERCOT", "O'BRANNOX"};

constexpr std::array<Words, 20> kTowns = {
    "ALDERFORD",   "BRISTOW MILLS", "CALLOWAY",   "DUNMERE",      "EAST TARROW",
    "FENWICK GAP", "GRANDLEY",      "HOLLISBURG", "IRONDALE",     "JESSUP FALLS",
    "KINGSMEADE",  "LARKHAVEN",     "MOSSY BEND", "NEW CORWIN",   "OTTERBURY",
    "PINE HARBOR", "QUARRYTOWN",    "REDSTONE",   "SALT PRAIRIE", "THORNBRIDGE"};

constexpr std::array<Words, 12> kStreets = {
    "MILL RD", "HIGH ST",      "OAK LANE",  "STATE HWY 9", "RIVER DR",  "COMMERCE BLVD",
    "ELM AVE", "COUNTY RD 12", "LAKE VIEW", "DEPOT ST",    "QUARRY RD", "ORCHARD WAY"};

constexpr std::array<Words, 10> kStates = {"OH", "IN", "MI", "PA", "KY",
                                           "WI", "IL", "MN", "IA", "TN"};

constexpr std::array<Words, 12> kTrades = {"LANDSCAPING", "TREE SERVICE", "EXCAVATING", "FARMS",
                                           "GOLF CLUB",   "MARINA",       "CEMETERY",   "TOWNSHIP",
                                           "RENTALS",     "CONTRACTING",  "NURSERY",    "SCHOOLS"};

constexpr std::array<Words, 8> kBusinesses = {"POWER EQUIPMENT", "TURF SUPPLY",   "MARINE",
                                              "LAWN & GARDEN",   "OUTDOOR POWER", "TRACTOR",
                                              "SMALL ENGINE",    "CYCLE & SAW"};

constexpr std::array<Words, 24> kPartAdjectives = {
    "HYDRAULIC", "FUEL",  "AIR",      "OIL",      "DRIVE",  "DECK",    "FRONT",   "REAR",
    "UPPER",     "LOWER", "LEFT",     "RIGHT",    "MAIN",   "IDLER",   "STARTER", "PRIMARY",
    "SPINDLE",   "CABLE", "THROTTLE", "STEERING", "CLUTCH", "EXHAUST", "INTAKE",  "BRAKE"};

constexpr std::array<Words, 24> kPartNouns = {
    "FILTER",  "GASKET", "BEARING", "BELT",  "PULLEY", "SEAL",    "BLADE",  "BOLT",
    "SPRING",  "SHAFT",  "HOUSING", "COVER", "VALVE",  "PUMP",    "SWITCH", "BUSHING",
    "BRACKET", "KIT",    "CABLE",   "WHEEL", "TIRE",   "MUFFLER", "LEVER",  "PIN"};

constexpr std::array<Words, 14> kMakes = {
    "ARDENT",  "BELLCREST", "CORVANE", "DRAYMORE", "ELKHORNE",   "FIELDEX", "GROVEWIN",
    "HARKSON", "IRONVALE",  "JUBILO",  "KESTRIX",  "LODEMASTER", "MARLOWE", "NORTHLEA"};

constexpr std::array<Words, 14> kMachines = {
    "ROTARY MOWER", "LAWN TRACTOR", "ZERO TURN MOWER", "CHAIN SAW", "STRING TRIMMER",
    "SNOW THROWER", "LEAF BLOWER",  "FISHING BOAT",    "OUTBOARD",  "UTILITY TRAILER",
    "GENERATOR",    "LOG SPLITTER", "UTILITY CART",    "TILLER"};

constexpr std::array<Words, 12> kLineKinds = {
    "ENGINE PARTS", "MOWER PARTS", "SAW PARTS",    "BELTS",    "BLADES",      "FILTERS",
    "OIL & LUBE",   "TIRES",       "MARINE PARTS", "TRAILERS", "WHOLE GOODS", "SHOP SUPPLIES"};

constexpr std::array<Words, 16> kLabor = {
    "TUNE UP",          "SHARPEN BLADES",    "REPLACE BELT",    "CARBURETOR REBUILD",
    "WINTERIZE ENGINE", "DIAGNOSE NO START", "REPLACE SPINDLE", "ADJUST VALVES",
    "SERVICE CALL",     "REPAIR STARTER",    "OIL CHANGE",      "SET UP NEW UNIT",
    "PRESSURE TEST",    "REPLACE FUEL LINE", "WELD DECK",       "WARRANTY INSPECTION"};

constexpr std::size_t kLongestDealershipName = 35;
constexpr std::string_view kPartCharacters = "0123456789ABCDEFGHJKLMNPRSTUVWXYZ";

std::string joined(Words first, Words second) {
  return std::string(first).append(" ").append(second);
}

std::string digits(Random& random, int count) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += static_cast<char>('0' + random.between(0, 9));
  return text;
}

}  // namespace

std::string dealershipName(Random& random) {
  std::string name;
  do {
    const Words owner = lastName(random);
    const std::string business = joined(owner, random.pick(kBusinesses));
    name = joined(business + " OF", townName(random));
  } while (name.size() > kLongestDealershipName);
  return name;
}

std::string_view firstName(Random& random) {
  return random.pick(kFirstNames);
}

std::string_view lastName(Random& random) {
  return random.pick(kLastNames);
}

std::string personName(Random& random) {
  const Words last = lastName(random);
  return joined(last, firstName(random));
}

std::string companyName(Random& random) {
  const Words owner = random.chance(30) ? townName(random) : lastName(random);
  return joined(owner, random.pick(kTrades));
}

std::string streetAddress(Random& random) {
  const std::string number = std::to_string(random.between(1, 9899));
  return joined(number, random.pick(kStreets));
}

std::string_view townName(Random& random) {
  return random.pick(kTowns);
}

std::string_view stateCode(Random& random) {
  return random.pick(kStates);
}

std::string zipCode(Random& random) {
  return digits(random, 5);
}

std::string phoneNumber(Random& random) {
  const std::string area = std::to_string(random.between(201, 989));
  return area + "55501" + digits(random, 2);
}

std::string partDescription(Random& random) {
  const Words adjective = random.pick(kPartAdjectives);
  return joined(adjective, random.pick(kPartNouns));
}

std::string partNumber(Random& random, int length) {
  std::string number;
  for (int i = 0; i < length; ++i)
    number += random.pick(kPartCharacters);
  return number;
}

std::string_view makeName(Random& random) {
  return random.pick(kMakes);
}

std::string_view machineName(Random& random) {
  return random.pick(kMachines);
}

std::string productLineName(Random& random) {
  const Words make = makeName(random);
  return joined(make, random.pick(kLineKinds));
}

std::string_view laborDescription(Random& random) {
  return random.pick(kLabor);
}

}  // namespace dg::sample
