#include "ProfileLists.h"
#include "Sample.h"

#include <gmock/gmock.h>
#include <limits>

/// The rules of the individual types and the order in which they are checked.
namespace norel::Desktop::Domain::Payloads::Test {
namespace {

using testing::ThrowsMessage;

template <typename Error = std::invalid_argument, typename Builder>
void expectRejected(const Builder& builder, const std::string& message) {
    EXPECT_THAT([&] { builder.build(); }, ThrowsMessage<Error>(message));
}

template <typename Builder>
Builder makeSample() {
    Builder builder;
    Sample sample(builder);
    return builder;
}

TEST(FieldOfViewRange, AcceptsAnyRangeInDegrees) {
    using Range = FieldOfViewRange::Builder;
    const std::string unit = "Profile FieldOfViewRange: unit must be \"deg\"";
    expectRejected(Range{1.5, -2, "m"},
                   "Profile FieldOfViewRange: minimum (1.5) must be smaller or equal to maximum (-2)");
    for (const char* rejected : {"", "DEG", "deg ", " deg", "de"})
        expectRejected(Range{0, 1, rejected}, unit);
    const FieldOfViewRange range = Range{-200, 35, "deg"}.build();
    EXPECT_EQ(range.getMinimum(), -200);
    EXPECT_EQ(range.getMaximum(), 35);
    EXPECT_EQ(range.getUnit(), "deg");
    EXPECT_NO_THROW((Range{7, 7, "deg"}.build()));
    EXPECT_TRUE(range != (Range{-200, 36, "deg"}.build()));
}

TEST(FieldOfViews, RequireExactlyOneDefaultAndUniqueViews) {
    using Item = FieldOfView::Builder;
    const auto item = [](double minimum, double maximum, bool isDefault, double filter = 1) {
        return Item{{minimum, maximum, "deg"}, {-filter, filter, "deg"}, isDefault};
    };
    const std::string none = "Profile FieldOfViews: at least one FieldOfView is required";
    const std::string defaults = "Profile FieldOfViews: exactly one FieldOfView must be default";
    const std::string unique = "Profile FieldOfViews: all FieldOfView must be unique";
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct {
        std::vector<Item> items;
        std::string message;
    } const cases[] = {
        {{}, none},
        {{item(-1, 1, false)}, defaults},
        {{item(-1, 1, true), item(-2, 2, true)}, defaults},
        {{item(-45, 45, true, 1), item(-45, 45, false, 2)}, unique},
        {{item(1, 2, false), item(0, 5, true), item(3, 4, false), item(-0.0, 5, false)}, unique},
        {{item(-1, 1, true), item(2, 1, true)},
         "Profile FieldOfViewRange: minimum (2) must be smaller or equal to maximum (1)"},
        {{item(-45, 45, true), item(-45, 46, false), item(-46, 45, false)}, ""},
        {{item(nan, 1, true), item(nan, 1, false), item(0, nan, false), item(0, 1, false)}, ""},
    };
    for (const auto& [items, message] : cases) {
        if (message.empty()) {
            EXPECT_NO_THROW(FieldOfViews::Builder{items}.build());
        } else
            expectRejected(FieldOfViews::Builder{items}, message);
    }
}

TEST(FieldOfViews, AreCheckedQuicklyInALongList) {
    FieldOfViews::Builder builder;
    for (int i = 0; i < 50000; ++i)
        builder.listOfFieldOfViews.push_back({{-1.0 * i, 1, "deg"}, {0, 0, "deg"}, i == 0});
    EXPECT_EQ(builder.build().getListOfFieldOfViews().size(), 50000U);
    builder.listOfFieldOfViews.back().view = {-5, 1, "deg"};
    expectRejected(builder, "Profile FieldOfViews: all FieldOfView must be unique");
}

TEST(Cameras, RequireSupportedAndUniqueOrientations) {
    const auto build = [](const std::vector<std::string>& orientations) {
        Cameras::Builder builder;
        for (const std::string& orientation : orientations)
            builder.listOfCameras.push_back({orientation, {}, {}, {}, {}});
        return [builder] { return builder.build(); };
    };
    EXPECT_EQ(
        build({"a-left", "d-right", "w-front", "x-rear", "s-nadir", "nadir"})().getListOfCameras().size(),
        6U);
    for (const char* rejected : {"Nadir", "nadir ", "left", "a-lef"})
        EXPECT_THAT(build({"nadir", rejected, "nadir"}),
                    ThrowsMessage<std::invalid_argument>(std::string("Profile Camera: orientation \"") +
                                                         rejected + "\" is invalid"));
    EXPECT_THAT(build({"a-left", "d-right", "d-right", "a-left"}),
                ThrowsMessage<std::invalid_argument>(
                    "Profile Cameras: camera with orientation \"d-right\" appears more than once"));
}

TEST(ListGetters, ReturnCopiesFromTemporaries) {
    Profile::Builder builder = makeProfile(1, "a");
    builder.trajectory.cameras.listOfCameras = {{"nadir", {}, {}, {}, {}}, {"a-left", {}, {}, {}, {}}};
    const Profile profile = builder.build();
    std::string orientations;
    for (const Camera& camera : profile.getTrajectory().getCameras().getListOfCameras())
        orientations += camera.getOrientation() + " ";
    EXPECT_EQ(orientations, "nadir a-left ");
    FieldOfViews::Builder views;
    views.listOfFieldOfViews = {{{-1, 1, "deg"}, {-1, 1, "deg"}, true}};
    static_assert(!std::is_reference_v<decltype(views.build().getListOfFieldOfViews())>);
    EXPECT_TRUE(views.build().getListOfFieldOfViews().front().getIsDefault());
}

TEST(Trajectory, AcceptsOnlySupportedCodesAndMounts) {
    Trajectory::Builder builder;
    builder.stabilizedMount = "none";
    for (const char* code : {"SDLessthan3cm", "SD10cm", "SD50cm", "SD1m", "SD10m"}) {
        builder.imuOnboard.gnssStandardDeviation = code;
        EXPECT_NO_THROW(builder.build()) << code;
    }
    for (const char* mount : {"None", "none ", "synthetize gimbal", "gimbal"}) {
        builder.stabilizedMount = mount;
        expectRejected(builder,
                       std::string("Profile Trajectory: stabilized mount \"") + mount + "\" is invalid");
    }
    builder.stabilizedMount = "synthetize gimbal data";
    EXPECT_NO_THROW(builder.build());
    for (const char* code : {"sd10cm", "SDLessthan3cm ", "SD3cm", "SDLessThan3cm"}) {
        builder.imuOnboard.gnssStandardDeviation = code;
        expectRejected(builder,
                       std::string("Profile Imu: GNSS standard deviation \"") + code + "\" is invalid");
    }
}

TEST(Georeferencing, RequiresAnglesOrACalibrationDocument) {
    Georeferencing::Builder builder;
    builder.fieldOfViews = makeSample<FieldOfViews::Builder>();
    expectRejected<std::runtime_error>(builder,
                                       "Georeferencing information of a profile requires either boresight "
                                       "angles or a calibration document.");
    builder.calibrationDocument.emplace();
    EXPECT_NO_THROW(builder.build());
    builder.calibrationDocument.reset();
    builder.boresightAngles.emplace();
    EXPECT_NO_THROW(builder.build());
}

TEST(LidarCoveragePreview, RequiresARateBetweenZeroAndOne) {
    const std::string rate = "Profile LidarCoveragePreview: downsampling rate (";
    const std::pair<double, std::string> rejected[] = {
        {0, rate + "0) must be greater than zero"},
        {1, rate + "1) must be smaller than one"},
        {0.5, "Profile Parameter: value (0.5) must be within min/max (0.6/1)"},
    };
    for (const auto& [value, message] : rejected)
        expectRejected(LidarCoveragePreview::Builder{{value, 0.6, 1, 0.6, {}, 1, ""}}, message);
    for (const double value : {0.99, 0.995, 0.999, 1e-300})
        EXPECT_NO_THROW((LidarCoveragePreview::Builder{{value, 0, 1, 0, {}, 1, ""}}.build()));
}

TEST(Lidar, RequiresASignedPermutationOfTheAxesAsAlignment) {
    Lidar::Builder builder = makeSample<Lidar::Builder>();
    builder.fileExtension = "";
    for (const char* alignment : {"x y z", "z y -x", "-x -y -z", "-z -x y", "y z x"}) {
        builder.alignment = alignment;
        EXPECT_EQ(builder.build().getAlignment(), alignment);
    }
    for (const char* alignment :
         {"x y x",   "x -x y", "-z z y", "x  y z", " x y z", "x y z ", "X Y Z",   "x Y z", "x y",   "x y z x",
          "--x y z", "x - z",  "xyz",    "x,y,z",  "x\ty z", "+x y z", "x y z\n", "a b c", "- y z", ""}) {
        builder.alignment = alignment;
        expectRejected(builder, std::string("Profile Lidar: alignment \"") + alignment + "\" is invalid");
    }
}

TEST(ErrorMessages, HaveABoundedLength) {
    Parameter<double>::Builder parameter;
    parameter.unit = std::string(499, 'm') + "\xC3\xA4 and more";
    expectRejected(parameter,
                   "Profile Parameter: unit \"" + std::string(499, 'm') + "...\" is not supported");
    parameter.maximum = 0;
    for (int i = 0; i < 10000; ++i)
        parameter.presets[std::to_string(i)] = 1;
    EXPECT_THAT([&] { parameter.build(); },
                ThrowsMessage<std::invalid_argument>(testing::AllOf(
                    testing::EndsWith("\nProfile Parameter: more presets must be within min/max"),
                    testing::SizeIs(testing::Lt(11000U)))));
    Lidar::Builder lidar;
    lidar.alignment = std::string(60000, 'x');
    expectRejected(lidar, "Profile Lidar: alignment \"" + std::string(500, 'x') + "...\" is invalid");
}

TEST(Profile, RequiresANameAndAProduct) {
    Profile::Builder builder = makeProfile(Profile::ID_IS_UNASSIGNED, "");
    builder.product = "";
    expectRejected<Profile::InvalidProfile>(builder, "The \"name\" string cannot be empty.");
    builder.name = " ";
    expectRejected<Profile::InvalidProfile>(builder, "The \"product\" string cannot be empty.");
    builder.product = " ";
    EXPECT_EQ(builder.build().getId(), 4294967295U);
    builder.name = "";
    builder.lidar.emplace();
    expectRejected(builder, "Profile Lidar: alignment \"\" is invalid");
    builder.trajectory.stabilizedMount = "";
    expectRejected(builder, "Profile Trajectory: stabilized mount \"\" is invalid");
}

} // namespace
} // namespace norel::Desktop::Domain::Payloads::Test
