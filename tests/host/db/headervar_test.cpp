// Header variables of a drawing: ranges, the two ways to them, and the host variables of the same names.

#include "kd/db/headervar.h"

#include <limits>

#include "kd/db/database.h"
#include "kd/ed/variables.h"
#include "tests/support/application.h"

namespace {

struct NumberVariable {
    const wchar_t* name;
    int (KdDbDatabase::*get)() const;
    Kdad::ErrorStatus (KdDbDatabase::*set)(int);
    int (KdDbHeaderVar::*header)() const;
    int lowest;
    int highest;
    int standard;
};
using Db = KdDbDatabase;
using Header = KdDbHeaderVar;
constexpr NumberVariable numberVariables[] = {
    {L"LUNITS", &Db::lunits, &Db::setLunits, &Header::lunits, 1, 5, 2},
    {L"LUPREC", &Db::luprec, &Db::setLuprec, &Header::luprec, 0, 8, 4},
    {L"AUNITS", &Db::aunits, &Db::setAunits, &Header::aunits, 0, 4, 0},
    {L"AUPREC", &Db::auprec, &Db::setAuprec, &Header::auprec, 0, 8, 0},
    {L"UNITMODE", &Db::unitmode, &Db::setUnitmode, &Header::unitmode, 0, 1, 0},
    {L"DIMZIN", &Db::dimzin, &Db::setDimzin, &Header::dimzin, 0, 15, 8},
    {L"INSUNITS", &Db::insunits, &Db::setInsunits, &Header::insunits, 0, 24, 4},
    {L"MEASUREMENT", &Db::measurement, &Db::setMeasurement, &Header::measurement, 0, 1, 1},
};

TEST(KdDbHeaderVar, keeps_what_is_in_range_and_refuses_the_rest) {
    KdDbDatabase database(false, true);
    const KdDbHeaderVar& header = KdDbSystemInternals::getImpDatabase(&database)->headerVar();
    for (const NumberVariable& variable : numberVariables) {
        EXPECT_EQ((database.*variable.get)(), variable.standard);
        for (int value = variable.lowest; value <= variable.highest; ++value) {
            EXPECT_EQ((database.*variable.set)(value), Kdad::eOk);
            EXPECT_EQ((database.*variable.get)(), value);
            EXPECT_EQ((header.*variable.header)(), value);
        }
        for (const int value : {variable.lowest - 1, variable.highest + 1, 32000, -32000}) {
            EXPECT_EQ((database.*variable.set)(value), Kdad::eInvalidInput);
            EXPECT_EQ((database.*variable.get)(), variable.highest);
        }
    }
}

TEST(KdDbHeaderVar, holds_the_base_and_direction_of_angles) {
    KdDbDatabase database(false, true);
    EXPECT_EQ(database.angbase(), 0.0);
    EXPECT_FALSE(database.angdir());
    EXPECT_EQ(database.setAngbase(-1.5), Kdad::eOk);
    EXPECT_EQ(database.setAngdir(true), Kdad::eOk);
    EXPECT_EQ(database.setAngbase(std::numeric_limits<double>::quiet_NaN()), Kdad::eInvalidInput);
    EXPECT_EQ(database.angbase(), -1.5);
    EXPECT_TRUE(database.angdir());
}

TEST(KdDbHeaderVar, belongs_to_one_drawing) {
    KdDbDatabase one(false, true);
    KdDbDatabase other(false, true);
    one.setLunits(4);
    EXPECT_EQ(other.lunits(), 2);
    EXPECT_EQ(KdDbSystemInternals::getImpDatabase(nullptr), nullptr);
}

TEST(KdDbHeaderVar, measurement_tells_whether_the_drawing_is_metric) {
    KdDbDatabase database(false, true);
    EXPECT_TRUE(database.measurementIsMetric());
    database.setMeasurement(0);
    EXPECT_FALSE(database.measurementIsMetric());
}

class HeaderVariables : public kdtest::ApplicationTest {};

TEST_F(HeaderVariables, are_host_variables_of_the_active_drawing) {
    for (const NumberVariable& variable : numberVariables) {
        resbuf value;
        value.restype = RTSHORT;
        value.resval.rint = static_cast<short>(variable.highest);
        EXPECT_EQ(kdedSetVar(variable.name, &value), RTNORM) << std::string(variable.name, variable.name + 4);
        EXPECT_EQ((host.database().*variable.get)(), variable.highest);
        (host.database().*variable.set)(variable.lowest);
        resbuf read;
        EXPECT_EQ(kdedGetVar(variable.name, &read), RTNORM);
        EXPECT_EQ(read.restype, RTSHORT);
        EXPECT_EQ(read.resval.rint, variable.lowest);
        value.resval.rint = static_cast<short>(variable.highest + 1);
        EXPECT_EQ(kdedSetVar(variable.name, &value), RTERROR);
        EXPECT_EQ((host.database().*variable.get)(), variable.lowest);
    }
}

TEST_F(HeaderVariables, of_angles_are_a_real_and_a_direction) {
    resbuf value;
    value.restype = RTREAL;
    value.resval.rreal = 0.75;
    EXPECT_EQ(kdedSetVar(L"ANGBASE", &value), RTNORM);
    EXPECT_EQ(host.database().angbase(), 0.75);
    value.restype = RTSHORT;
    value.resval.rint = 1;
    EXPECT_EQ(kdedSetVar(L"ANGDIR", &value), RTNORM);
    EXPECT_TRUE(host.database().angdir());
    EXPECT_EQ(kdedSetVar(L"ANGBASE", &value), RTERROR);
    resbuf read;
    EXPECT_EQ(kdedGetVar(L"ANGBASE", &read), RTNORM);
    EXPECT_EQ(read.restype, RTREAL);
    EXPECT_EQ(read.resval.rreal, 0.75);
    EXPECT_EQ(kdedGetVar(L"ANGDIR", &read), RTNORM);
    EXPECT_EQ(read.resval.rint, 1);
}

TEST_F(HeaderVariables, are_set_at_the_command_line) {
    host.run(L"LUNITS\n4\nSETVAR\nAUPREC\n3\n");
    EXPECT_EQ(host.database().lunits(), 4);
    EXPECT_EQ(host.database().auprec(), 3);
}

}  // namespace
