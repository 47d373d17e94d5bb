#include "norel/Desktop/Domain/Payloads/ProfileListDefaultProductsStorage.h"

#include "StorageErrors.h"
#include "norel/Desktop/Domain/Payloads/DefaultProducts.h"
#include "norel/Desktop/Domain/Payloads/JsonProfileListSerializer.h"
#include "norel/Desktop/Utils/Errors.h"

namespace norel::Desktop::Domain::Payloads {
namespace {

constexpr const char* DEFAULT_PRODUCTS_STORAGE_FILE = "Infrastructure/ProfileListDefaultProductsStorage";

} // namespace

void ProfileListDefaultProductsStorage::remove() {
    Utils::throwUnreachableCodeError(
        "an unexpected ProfileListDefaultProductsStorage::remove was called, storage is not removable",
        {DEFAULT_PRODUCTS_STORAGE_FILE, __LINE__});
}

ProfileList ProfileListDefaultProductsStorage::read() {
    return withReadErrors(
        [] { return JsonProfileListSerializer().deserialize(DefaultProducts::getSourceDocument()); });
}

void ProfileListDefaultProductsStorage::write(const ProfileList& /*list*/) {
    Utils::throwUnreachableCodeError(
        "an unexpected ProfileListDefaultProductsStorage::write was called, storage is read only",
        {DEFAULT_PRODUCTS_STORAGE_FILE, __LINE__});
}

} // namespace norel::Desktop::Domain::Payloads
