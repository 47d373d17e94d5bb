#pragma once

/// The whole public interface of the library, and the host contracts that it is built on.
///
/// Values and builders. Every type of the model is an immutable value, made by its nested Builder: a plain
/// structure with the same fields in the same order, all assignable. `build` is const and can be called
/// repeatedly. It first checks the rules of the plain fields of the builder, then builds the members, then
/// checks the rules that relate them. It throws at the first violation: std::invalid_argument, except
/// where a type says otherwise, with a message that does not name the member. Members are built from the last
/// field to the first, which decides the message when several are invalid, except where a Builder says
/// otherwise; the items of a list from the first to the last. Getters return copies, and empty optionals for
/// absent members; equality compares field by field. `toBuilder` returns a builder with the contents of a
/// value.
///
/// Threads. Distinct objects may be used by distinct threads, and one value may be read by several threads at
/// once. Storages and use cases must be serialized by the application where they share a document.
namespace norel::Desktop::Domain::Payloads {}

#include "norel/Desktop/DataFormat/Json.h"
#include "norel/Desktop/DateTime/ClockProvider.h"
#include "norel/Desktop/DateTime/DateTime.h"
#include "norel/Desktop/DateTime/DateTimeConversion.h"
#include "norel/Desktop/Domain/Payloads/Angles3.h"
#include "norel/Desktop/Domain/Payloads/BoresightCalibration.h"
#include "norel/Desktop/Domain/Payloads/CameraAngles3.h"
#include "norel/Desktop/Domain/Payloads/Cameras.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/DocumentVersions.h"
#include "norel/Desktop/Domain/Payloads/Export.h"
#include "norel/Desktop/Domain/Payloads/FieldOfViews.h"
#include "norel/Desktop/Domain/Payloads/Georeferencing.h"
#include "norel/Desktop/Domain/Payloads/GroundClassification.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "norel/Desktop/Domain/Payloads/Lidar.h"
#include "norel/Desktop/Domain/Payloads/LidarCoveragePreview.h"
#include "norel/Desktop/Domain/Payloads/MountingAngles3.h"
#include "norel/Desktop/Domain/Payloads/Parameter.h"
#include "norel/Desktop/Domain/Payloads/PointCloudDirectColorization.h"
#include "norel/Desktop/Domain/Payloads/PrecisionEnhancement.h"
#include "norel/Desktop/Domain/Payloads/Profile.h"
#include "norel/Desktop/Domain/Payloads/ProfileList.h"
#include "norel/Desktop/Domain/Payloads/ProfileListDefaultProductsStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListFileStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListHttpStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSchema.h"
#include "norel/Desktop/Domain/Payloads/ProfileListSerializer.h"
#include "norel/Desktop/Domain/Payloads/ProfileListStorage.h"
#include "norel/Desktop/Domain/Payloads/ProfileListValidator.h"
#include "norel/Desktop/Domain/Payloads/ProfileUpgrade.h"
#include "norel/Desktop/Domain/Payloads/StripAdjustment.h"
#include "norel/Desktop/Domain/Payloads/ToBuilder.h"
#include "norel/Desktop/Domain/Payloads/Trajectory.h"
#include "norel/Desktop/Domain/Payloads/UseCase/AddOrUpdateProfile.h"
#include "norel/Desktop/Domain/Payloads/UseCase/DeleteProfile.h"
#include "norel/Desktop/Domain/Payloads/UseCase/GetProfileListFromStorage.h"
#include "norel/Desktop/Domain/Payloads/UseCase/MergeProfileStorages.h"
#include "norel/Desktop/Domain/Payloads/Vector3.h"
#include "norel/Desktop/Networking/Http/HttpClient.h"
#include "norel/Desktop/Storage/TextFileStorage.h"
#include "norel/Desktop/Utils/ConvertToGenericString.h"
#include "norel/Desktop/Utils/Errors.h"
#include "norel/Desktop/Utils/SourceCodeLocation.h"
#include "norel/Desktop/Utils/StringConverter.h"
#include "norel/Desktop/Utils/StringFunctions.h"
