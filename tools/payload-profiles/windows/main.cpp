#include "CommandLine.h"
#include "text/windows/Utf16.h"

#include <string>
#include <vector>

#ifdef __MINGW32__
extern "C" int _dowildcard; // not declared by any header
int _dowildcard = -1;       // expand * and ? in arguments, as the shells of other systems do
#endif

int wmain(int argumentCount, wchar_t** arguments) {
    std::vector<std::string> texts;
    std::vector<const char*> pointers;
    for (int i = 0; i < argumentCount; ++i)
        texts.push_back(norel::Desktop::Text::fromUtf16(arguments[i]));
    for (const std::string& text : texts)
        pointers.push_back(text.c_str());
    return norel::Desktop::PayloadProfiles::run(argumentCount, pointers.data());
}
