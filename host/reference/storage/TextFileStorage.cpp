#include "norel/Desktop/Storage/TextFileStorage.h"

namespace norel::Desktop::Storage {

TextFileStorage::~TextFileStorage() = default;

} // namespace norel::Desktop::Storage
