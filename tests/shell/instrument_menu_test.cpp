// Both trees of instruments, word for word: an instrument's number less 1001 is the program that is sent.
#include "shell/menu_parts.h"

#include <gtest/gtest.h>

#include <string>

namespace zarn
{
namespace
{
/// A submenu a line: its label, and its items with their numbers; a doubled "&" as one.
std::string AsText(MenuItem const& tree)
{
    std::string sText;
    for (MenuItem const& group : tree.aItems)
    {
        sText += std::string(group.sLabel) + ":";
        for (MenuItem const& item : group.aItems)
        {
            std::string sLabel = item.sLabel;
            if (size_t const n = sLabel.find("&&"); n != std::string::npos)
                sLabel.erase(n, 1);
            sText += " " + std::to_string(item.lCommand) + " " + sLabel + ",";
        }
        sText.back() = '\n';
    }
    return sText;
}
} // namespace

TEST(InstrumentMenuTable, GeneralMidiHasItsGroupsAndNames)
{
    MenuItem const tree = InstrumentMenu()[0];
    EXPECT_STREQ(tree.sLabel, "Roland Sound canvas / General MIDI");
    EXPECT_EQ(AsText(tree),
              "Piano-ish: 1001 Piano 1, 1002 Piano 2, 1003 Piano 3, 1004 Honky-tonk piano, 1005 Electric piano "
              "1, 1006 Electric piano 2, 1007 Harpsichord, 1008 Clavichord, 1009 Celesta, 1010 Glockenspiel, "
              "1011 Music Box, 1012 Vibraphone, 1013 Marimba, 1014 Xylophone, 1015 Tubular bell, 1016 Santur\n"
              "Organ-ish: 1017 Organ 1, 1018 Organ 2, 1019 Organ 3, 1020 Church Organ, 1021 Reed Organ, 1022 "
              "Accordion Fr, 1023 Harmonica, 1024 Bandneon\n"
              "Guitar: 1025 Nylon str, 1026 Steel str, 1027 Jazz, 1028 Clean, 1029 Muted, 1030 Overdrive, 1031 "
              "Distortion, 1032 Harmonics\n"
              "Bass: 1033 Accoustic, 1034 Fingered, 1035 Picked, 1036 Fretless, 1037 Slap 1, 1038 Slap 2, 1039 "
              "Synth 1, 1040 Synth 2\n"
              "Strings-ish: 1041 Violin, 1042 Viola, 1043 Cello, 1044 Contrabass, 1045 Tremolo, 1046 "
              "Pizzicato, 1047 Harp, 1048 Timpani, 1049 Strings, 1050 Slow, 1051 Synth 1, 1052 Synth 2\n"
              "Voices: 1053 Choir Aah, 1054 Voice Ooh, 1055 Synth\n"
              "Brass: 1056 Orchestra hit, 1057 Trumpet, 1058 Trombone, 1059 Tuba, 1060 Muted trumpet, 1061 "
              "French horn, 1062 Brass, 1063 Synth 1, 1064 Synth 2\n"
              "Blown reeds: 1065 Soprano sax, 1066 Alto sax, 1067 Tenor sax, 1068 Baritone sax, 1069 Oboe, "
              "1070 English horn, 1071 Bassoon, 1072 Clarinet\n"
              "Woodwind: 1073 Piccolo, 1074 Flute, 1075 Recorder, 1076 Pan flute, 1077 Bottle blow, 1078 "
              "Shakuhachi, 1079 Whistle, 1080 Ocarina\n"
              "Miscellaneous 1: 1081 Square wave, 1082 Saw wave, 1083 Syn calliope, 1084 Chiffer lead, 1085 "
              "Charang, 1086 Solo vox, 1087 5th saw wave, 1088 Brass & lead, 1089 Fantasia, 1090 Warm pad, "
              "1091 Polysynth, 1092 Space voice, 1093 Bowed glass, 1094 Metal pad, 1095 Halo pad, 1096 Sweep "
              "pad\n"
              "Miscellaneous 2: 1097 Ice rain, 1098 Soundtrack, 1099 Crystal, 1100 Atmosphere, 1101 "
              "Brightness, 1102 Goblin, 1103 Echo drops, 1104 Star theme\n"
              "Miscellaneous 3: 1105 Sitar, 1106 Banjo, 1107 Shamisen, 1108 Koto, 1109 Kalimba, 1110 Bag-pipe, "
              "1111 Fiddle, 1112 Shannai\n"
              "Miscellaneous 4: 1113 Tinkle Bell, 1114 Agogo, 1115 Steel drums, 1116 Woodblock, 1117 Taiko, "
              "1118 Melo. Tom1, 1119 Synth drum, 1120 Reverse cym, 1121 Gt fret noise, 1122 Breath noise, 1123 "
              "Seashore, 1124 Bird, 1125 Telephone 1, 1126 Helicopter, 1127 Applause, 1128 Gun shot\n");
}

TEST(InstrumentMenuTable, TheMt100HasItsGroupsAndNames)
{
    MenuItem const tree = InstrumentMenu()[1];
    EXPECT_STREQ(tree.sLabel, "Roland MT-100");
    EXPECT_EQ(AsText(tree),
              "Piano: 1001 Piano 1, 1002 Piano 2, 1003 Piano 3, 1004 Electric piano 1, 1005 Electric piano 2, "
              "1006 Electric piano 3, 1007 Electric piano 4, 1008 Honky tonk piano\n"
              "Organ-ish: 1009 Electric organ 1, 1010 Electric organ 2, 1011 Electric organ 3, 1012 Electric "
              "organ 4, 1013 Pipe organ 1, 1014 Pipe organ 2, 1015 Pipe organ 3, 1016 Accordion\n"
              "Other keyboard: 1017 Harpsichord 1, 1018 Harpsichord 2, 1019 Harpsichord 3, 1020 Clavichord 1, "
              "1021 Clavichord 2, 1022 Clavichord 3, 1023 Celeste 1, 1024 Celeste 2\n"
              "Brass: 1025 Synth Brass 1, 1026 Synth Brass 2, 1027 Synth Brass 3, 1028 Synth Brass 4, 1096 "
              "Synth Brass 5(S1), 1097 Synth Brass 6(S2), 1086 E horn, 1089 Trumpet 1, 1090 Trumpet 2, 1091 "
              "Trombone 1, 1092 Trombone 2, 1093 French Horn 1, 1094 French Horn 2, 1095 Tuba\n"
              "Bass: 1029 Synth Bass 1, 1030 Synth Bass 2, 1031 Synth Bass 3, 1032 Synth Bass 4, 1065 Bass 1, "
              "1066 Bass 2, 1067 Electric bass 1, 1068 Electric bass 2, 1069 Slap bass 1, 1070 Slap bass 2, "
              "1071 Fret bass 1, 1072 Fret bass 2\n"
              "Synthetic: 1033 Fantasy, 1034 Hollow pan, 1035 Choral, 1036 Glass, 1037 S trak, 1038 "
              "Atmospheric, 1039 Warm B, 1040 Fun vox, 1041 Echo B, 1042 Ice rn, 1043 Ob 2001, 1044 E pan, "
              "1045 Dr solo, 1046 S daze, 1047 Bl sing, 1048 Square wave\n"
              "Bowed strings: 1049 Strings 1, 1050 Strings 2, 1051 Strings 3, 1053 Violin 1, 1054 Violin 2, "
              "1055 Cello 1, 1056 Cello 2\n"
              "Plucked strings: 1057 C bass, 1058 Harp 1, 1059 Harp 2, 1060 Guitar 1, 1061 Guitar 2, 1062 "
              "Electric guitar 1, 1063 Electric guitar 2, 1064 Sitar, 1053 Pizzicato violin\n"
              "Wind: 1073 Flute 1, 1074 Flute 2, 1075 Piccolo 1, 1076 Piccolo 2, 1077 Recorder, 1078 pan pipe\n"
              "Reed: 1079 Saxophone 1, 1080 Saxophone 2, 1081 Saxophone 3, 1082 Saxophone 4, 1083 Clarinet 1, "
              "1084 Clarinet 2, 1085 Oboe 2, 1087 Basoon, 1088 Harmonica\n"
              "Mallet: 1098 Vibraphone 1, 1099 Vibraphone 2, 1100 S malet, 1101 Wind b, 1102 Glockenspiel, "
              "1103 Tubular bell, 1104 Xylophone, 1105 Marimba\n"
              "Miscellaneous: 1106 Koto, 1107 Sho, 1108 Shaku, 1109 Whis 1, 1110 Whis 2, 1111 B blow, 1112 B "
              "pipe\n"
              "Percussion: 1113 Timpani, 1114 M tom, 1115 D snare, 1116 Elec percussion 1, 1117 Elec "
              "percussion 2, 1118 Taiko, 1119 T rim, 1120 Cymbal, 1121 Castinets, 1122 Triangle\n"
              "Effects: 1123 Orchestra hit, 1124 Phone, 1125 Birds, 1126 1 Note J, 1127 Water B, 1128 Joke "
              "tune\n");
}

} // namespace zarn
