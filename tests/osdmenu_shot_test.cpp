// Keys and options in, pictures out.
#include "support/tool.h"

// The sample menu in English alone.
struct Shot : Tool {
    Shot()
    {
        run("sed '/^  - de$/,/^  - ar$/d' " SAMPLE_MENU_DIR "/menu.yaml >m/menu.yaml; "
            "cp " SAMPLE_MENU_DIR "/osd_menu.json m; osdmenu build m/menu.yaml -o sample");
    }
};

static const std::string shots[][3] = {
    {"--keys down", "!=", ""},
    {"--keys 'down up'", "==", ""},
    {"--keys 'ok down back up'", "==", "--keys up"},
    {"--keys 'ok ok right'", "!=", "--keys 'ok ok'"},
    {"--helpline", "!=", ""},
    {"--trace trace.txt --background '#ff0000'", "==", ""},
    {"--bubble preset_saved --background '#ff0000'", "!=", "--bubble preset_saved"},
    {"--text 'a\\nbc' --background '#ff0000'", "!=", "--text 'a\\nbc'"},
    // The rules of UP, DOWN and OK that go to rows by their number must find the rows that are meant in the sample.
    {"--keys 'up down'", "==", ""},
    {"--open general --keys 'up ok'", "==", "--open peripheralinformation"},
    {"--open general --keys 'down down down ok'", "==", "--open peripheralinformation"},
    {"--disable peripheralinformation --open general --keys 'up down'",
     "==", "--disable peripheralinformation --open general"},
    {"--open information --keys 'up down down'", "==", "--open information"},
    {"--open smartgallery_preset", "!=", "--open smartgallery_preset --keys down"},
    {"--enable aimodeselection --open aimodeselection", "!=", "--enable aimodeselection"},
};
TEST_F(Shot, KeysAndOptionsChangeWhatTheShotShowsAndNothingIsPrinted)
{
    for (const auto &[arguments, relation, others] : shots) {
        run("osdmenu shot sample/en -o 1.png " + arguments + "; osdmenu shot sample/en -o 2.png " + others);
        EXPECT_EQ(out + err, "") << arguments;
        EXPECT_EQ(read(dir / "1.png") == read(dir / "2.png"), relation == "==") << arguments;
    }
    EXPECT_NE(read(dir / "trace.txt").find("DBG_INFO:"), std::string::npos);
}

static const std::string damages[][3] = {
    {"rm", "m.d", "no such file"}, {"rm", "hb.d", "no such file"}, {"put 128", "m.d", "no known type of value"},
    {"cut", "m.d", "cut short"},   {"cut", "b.d", "cut short"},    {"put 8", "s.d", "wider than its stride"},
    {"cut", "bb.d", "cut short"},  {"cut", "hm.d", "cut short"},   {"put 4", "c.d", "absurd size"},
    {"cut", "c.d", "cut short"},
};
TEST_F(Shot, DamagedResourcesAreNamedAndNotPaintedAndAMissingManifestIsWarnedOf)
{
    EXPECT_EQ(run("mkdir hurt; cp -r sample/en hurt; osdmenu shot hurt/en -o p.png"), 0);
    for (const char *file : {"menu.json", "conf_backup/osd_menu.json"})
        EXPECT_NE(err.find(std::string(file) + ": warning: there is no such file"), std::string::npos) << err;
    const std::string tools = "cut() { truncate -s -1 $1; }; "
                              "put() { printf '\\377\\377\\377' | dd of=$2 bs=1 seek=$1 conv=notrunc; }; ";
    for (const auto &[damage, file, fault] : damages) {
        run(tools + "rm -rf p.png hurt; cp -r sample hurt; " + damage + " hurt/en/" + file);
        EXPECT_EQ(run("osdmenu shot hurt/en -o p.png"), 1);
        EXPECT_NE(err.find("hurt/en/" + file + ": byte "), std::string::npos) << err;
        EXPECT_NE(err.find(fault), std::string::npos) << err;
        EXPECT_FALSE(fs::exists(dir / "p.png"));
    }
}

TEST_F(Shot, ALanguageGoesByADotAndThePictureIntoAPipe)
{
    EXPECT_EQ(run("cd sample/en; osdmenu shot . -o - | cat >../../1.png"), 0);
    EXPECT_EQ(run("osdmenu shot sample/en -o 2.png; cmp 1.png 2.png"), 0) << out << err;
}

TEST_F(Shot, AWrongCallIsAnotherFailureThanAnUnknownKey)
{
    EXPECT_EQ(run("osdmenu shot sample/en"), 2);
    EXPECT_EQ(run("osdmenu shot sample/en -o p.png --background red"), 2);
    EXPECT_EQ(run("osdmenu shot sample/en -o p.png --keys sideways"), 1);
    EXPECT_EQ(run("osdmenu shot sample/en -o p.png --trace /dev/full"), 1);
    EXPECT_EQ(err, "osdmenu: /dev/full cannot be written\n");
}
