#pragma once

#include "norel/Desktop/Networking/Http/HttpClient.h"

namespace norel::Desktop::Networking::Http {
} // namespace norel::Desktop::Networking::Http
