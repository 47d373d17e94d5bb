#include "RunApplication.h"

#include <array>
#include <gmock/gmock.h>

/// What needs the shell or other programs of POSIX systems.
namespace norel::Desktop::PayloadProfiles::Test {
namespace {

class PosixApplicationTest : public ApplicationTest {};

TEST_F(PosixApplicationTest, OpensReports) {
    write("p.json", makeDocument(5));
    const std::string desktop = "printf '#!/bin/sh\\nprintf %%s \"$*\" >opened; exit $STATUS\\n' >xdg-open; "
                                "chmod +x xdg-open; PATH=.:$PATH STATUS=";
    expect("report p.json --output=-r.html --open", 0, "saved a report of 1 profile to -r.html\n", "",
           desktop + "0");
    EXPECT_EQ(read("opened"), (std::filesystem::canonical(folder) / "-r.html").string());
    expect("report p.json --output=-r.html --open --force", 2, "",
           failure("-r.html", "the report is saved, but not opened: xdg-open failed"), desktop + "3");
}

TEST_F(PosixApplicationTest, CompletesCommandLinesOfBash) {
    write("my profiles.json", makeDocument(88));
    write("complete.sh", ". '" COMPLETION "'; compopt() { :; }; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1))\n"
                         "_payload_profiles; printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    const std::array<std::string, 2> words[] = {
        {"de", "delete\n"},
        {"show 'my\\ profiles.json' ''", "88\n"},
        {"merge http : //host/ my", "my profiles.json\n"},
        {"list --key-file = my", "my profiles.json\n"},
        {"set factory 88 na", "name=\n"},
        {"set factory 88 lidar.imu_latency = @x", "\n"},
        {"set factory 88 lidar.ground_classification.number_of_neighbors =@ 'hilly\\ u'",
         "@hilly\\ urban\n"}};
    for (const auto& [line, candidates] : words)
        expect(line, 0, candidates, "", "bash complete.sh");
}

TEST_F(PosixApplicationTest, LeavesFilesUnchangedOnASmallDisk) {
    const std::string smallDisk = "ulimit -f 2;";
    expect("merge factory p.json", 2, "", failure("p.json", "cannot create \"p.json\": File too large"),
           smallDisk);
    EXPECT_EQ(listFiles(), "");
    const std::string old = replaced(makeDocument(88), "\"dsm\"", "\"other\"");
    write("old.json", old);
    expect("upgrade old.json", 2, "",
           failure("old.json", "cannot create \"old.json.v4.bak\": File too large"), smallDisk);
    expect("upgrade old.json --no-backup", 2, "",
           failure("old.json", "cannot write \"old.json\": File too large"), smallDisk);
    expect("upgrade old.json --dry-run >&-", 2, "", failure("standard output", "Bad file descriptor"));
    EXPECT_EQ(read("old.json"), old);
    EXPECT_EQ(listFiles(), "old.json ");
}

TEST_F(PosixApplicationTest, KeepsTheOlderBackupWhenItCannotBeReplaced) {
    const std::string before = makeDocument(88);
    const std::string longName(240, 'n'); // of a file whose backup has a name of almost 255 bytes
    for (const char* file : {"p.json", longName.c_str()})
        write(file, before);
    std::filesystem::create_directory(folder / "p.json.bak");
    expect("delete p.json 88 --backup", 2, "", failure("p.json.bak", "cannot replace it: Is a directory"));
    std::filesystem::remove(folder / "p.json.bak");
    write("p.json.bak", "older");
    expect("delete p.json 88 --backup", 2, "",
           failure("p.json.bak", "cannot create \".p.json.bak.norel-new\": File too large"), "ulimit -f 2;");
    EXPECT_EQ(read("p.json.bak"), "older");
    EXPECT_EQ(read("p.json"), before);
    EXPECT_EQ(listFiles(), longName + " p.json p.json.bak ");
    runWell("delete " + longName + " 88 --backup");
    EXPECT_EQ(read(longName + ".bak"), before);
}

TEST_F(PosixApplicationTest, FailsWhenItsOutputCannotBeWritten) {
    const std::string full = failure("standard output", "No space left on device");
    const std::string closed = failure("standard output", "Bad file descriptor");
    for (const char* command : {"list factory", "show factory 88", "factory", "--help"}) {
        expect(std::string(command) + " >/dev/full", 2, "", full);
        expect(std::string(command) + " >&-", 2, "", closed);
    }
    expect("merge factory p.json >&-", 2, "", closed);
    expect("validate p.json >&-", 0, "");
    expect("factory; echo $? >&2; } | true", 0, "", "2\n", "{");
}

TEST_F(PosixApplicationTest, ReadsNoEndlessKeyFile) {
    expect("list --key-file /dev/zero http://127.0.0.1:1/", 2, "",
           failure("/dev/zero", "the key file is longer than 64 KiB"));
}

} // namespace
} // namespace norel::Desktop::PayloadProfiles::Test
