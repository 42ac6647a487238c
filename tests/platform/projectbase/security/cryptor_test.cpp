// SPDX-License-Identifier: MIT
#include "projectbase/security/cryptor.h"

#include "tests/support/temp_folder.h"
#include "tncommon/user_dirs.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <thread>

namespace {

namespace fs = std::filesystem;

class CryptorTest : public testing::Test
{
protected:
    void SetUp() override { fs::remove(Key()); }
    static fs::path Key() { return tncommon::UserDataDir() / "secrets.key"; }
};

TEST_F(CryptorTest, ReadsBackWhatItWroteAndShowsNothingOfIt)
{
    for (const wxString& plain : {wxString("sesame"), wxString::FromUTF8("Stra\u00dfe \u6c34 \U0001F4A7"),
                                  wxString("x", 1), wxString('a', 5000)}) {
        const wxString encrypted = Cryptor::EncryptString(plain);
        EXPECT_EQ(Cryptor::DecryptString(encrypted), plain);
        EXPECT_TRUE(plain.size() < 6 || encrypted.Find(plain.Left(6)) == wxNOT_FOUND);
        EXPECT_TRUE(encrypted.IsAscii());
        EXPECT_NE(Cryptor::EncryptString(plain), encrypted) << "equal secrets do not look alike";
    }
    EXPECT_EQ(Cryptor::EncryptString({}), wxString());
    const auto mode = fs::status(Key()).permissions() & fs::perms::all;
    EXPECT_EQ(mode, fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(CryptorTest, WhatWasNotMadeHereIsEmpty)
{
    const wxString encrypted = Cryptor::EncryptString("sesame");
    for (std::size_t place = 0; place < encrypted.size(); ++place) {
        wxString changed = encrypted;
        changed[place] = changed[place] == 'A' ? 'B' : 'A';
        EXPECT_EQ(Cryptor::DecryptString(changed), wxString()) << changed;
        EXPECT_EQ(Cryptor::DecryptString(encrypted.Left(place)), wxString()) << place;
    }
    for (const char* text : {"", "sesame", "s1:", "s1:????", "s1:AAAA"})
        EXPECT_EQ(Cryptor::DecryptString(text), wxString()) << text;
    // Another machine has another key.
    fs::remove(Key());
    EXPECT_EQ(Cryptor::DecryptString(encrypted), wxString()) << "no key";
    Cryptor::EncryptString("anything");
    EXPECT_EQ(Cryptor::DecryptString(encrypted), wxString()) << "another key";
}

TEST_F(CryptorTest, AKeyThatACrashCutShortIsMadeAnew)
{
    fs::create_directories(Key().parent_path());
    std::ofstream(Key()) << "short";
    EXPECT_EQ(Cryptor::DecryptString("s1:AAAA"), wxString());
    const wxString encrypted = Cryptor::EncryptString("sesame");
    EXPECT_EQ(Cryptor::DecryptString(encrypted), "sesame");
}

TEST_F(CryptorTest, ProgramsThatBeginTogetherHaveOneKey)
{
    std::vector<wxString> made(8);
    std::vector<std::thread> threads;
    for (wxString& encrypted : made)
        threads.emplace_back([&encrypted] { encrypted = Cryptor::EncryptString("sesame"); });
    for (std::thread& thread : threads)
        thread.join();
    for (const wxString& encrypted : made)
        EXPECT_EQ(Cryptor::DecryptString(encrypted), "sesame");
    std::set<std::string> left;
    for (const auto& entry : fs::directory_iterator(Key().parent_path())) {
        if (entry.path().filename().string().starts_with("secrets.key"))
            left.insert(entry.path().filename().string());
    }
    EXPECT_EQ(left, std::set<std::string>{"secrets.key"});
}

}  // namespace
