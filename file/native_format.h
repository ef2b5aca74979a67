/// The native file as it lies on the disk: little-endian, no padding.
///
///   header     version, magic (from version 7), staff count (from 3), three flags, the spacing three times (from 2)
///   elements   List 0 to List 8, each in list order: a record, its text bytes, its fingering bytes
///   end        a record with a duration of -1
///
/// What the versions added, as the reader sees it:
///   2  the oldest that is read: storage less 44, 16 ticks to the crotchet, all clefs treble, no note volume
///   3  the staff count      4  storage less 98      5  the volume of a note      6  48 ticks to the crotchet, real
///   clefs 7  the magic            8  positions that need no layout                     9  fingering behind a note
#pragma once
#include "core/element.h"

#include <cstdint>

namespace zarn
{
constexpr uint32_t lNativeMagic = 0x9C34B12A;
constexpr int32_t cSpacingCopies = 3; ///< of the pair columns and rows; the last one counts
constexpr int32_t lEndMark = -1;      ///< the duration that ends the file; no element may have it

constexpr int32_t lFirstVersionWithSpacing = 2;
constexpr int32_t lFirstVersionWithStaffs = 3;
constexpr int32_t lFirstVersionWithStorage98 = 4;
constexpr int32_t lFirstVersionWithVolume = 5;
constexpr int32_t lFirstVersionWith48Ticks = 6; ///< and with real clefs
constexpr int32_t lFirstVersionWithMagic = 7;
constexpr int32_t lFirstVersionLaidOut = 8;
constexpr int32_t lFirstVersionWithFingering = 9;

constexpr int32_t lStorageLess = 98;    ///< what `storage` is stored less, and the bytes that are no text in it
constexpr int32_t lOldStorageLess = 44; ///< before version 4
constexpr int32_t lOldCrotchet = 16;    ///< ticks of a crotchet before version 6
constexpr int32_t lCrotchet = 48;
constexpr int32_t lShortestStorage = cbElementFixed;
constexpr int32_t lLongestStorage = cbPlainElement + 1 + cchLongestText; ///< the longest text that the program makes
static_assert(lLongestStorage <= cbListLargestRecord);

/// Where each field of the record begins.
enum NativeOffset : int32_t
{
    AT_STORAGE = 0,   ///< 2 bytes, signed
    AT_INX = 2,       ///< 4 bytes; means nothing in a file
    AT_STRX = 6,      ///< 4 bytes
    AT_DURATION = 10, ///< 2 bytes, signed
    AT_TIME = 12,     ///< 4 bytes
    AT_STAFF = 16,    ///< 2 bytes, signed
    AT_X = 18,        ///< 4 bytes
    AT_Y = 22,        ///< 4 bytes
    AT_DIAPITCH = 26, ///< 2 bytes, signed
    AT_A = 28,        ///< 4 bytes
    AT_B = 32,        ///< 4 bytes
    AT_SORT = 36,     ///< 1 byte, unsigned
    AT_BEAM = 37,     ///< likewise
    AT_UP = 38,       ///< likewise
    AT_OVERBAR = 39,  ///< likewise
    AT_HIDDEN = 40,   ///< likewise
    cbNativeRecord = 41
};

/// Packs an element's fields; a value that its two bytes can't hold becomes the nearest that they can.
void NativeRecord_Pack(Element const& el, uint8_t (&aRecord)[cbNativeRecord]);

/// Unpacks a record of that version. lWidth, lPitch, lString, lFret and lFinger are left as they are; the first two
/// bytes of text become 0.
void NativeRecord_Unpack(uint8_t const (&aRecord)[cbNativeRecord], int32_t lVersion, Element& el);

/// A step of the reader, to the trace channel.
void ReadTrace(char const* sName, int32_t lValue);

/// Four bytes, low one first.
void Native_PutLong(uint8_t* pBytes, int32_t lValue);
[[nodiscard]] int32_t Native_GetLong(uint8_t const* pBytes);
} // namespace zarn
