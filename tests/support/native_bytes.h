/// Native files of any version, byte by byte, from the format's own tables: no code is shared with the program.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>

namespace zarn::test
{
/// One record, with the values of a plain crotchet; the fields in the file's order.
struct Record
{
    int32_t storage = 100; ///< as in memory
    int32_t inx = 0;
    int32_t lStrX = 0;
    int32_t lDuration = 48; ///< as in the file: 16 to the crotchet before version 6
    int32_t lTime = 0;
    int32_t lStaff = 1;
    int32_t lX = 0;
    int32_t lY = 0;
    int32_t lDiaPitch = 2;
    int32_t lA = 0;
    int32_t lB = 64;
    int32_t sort = 1;
    int32_t beam = 0;
    int32_t up = 1;
    int32_t fOverBar = 0;
    int32_t fHidden = 0;
    std::string sText = {}; ///< behind the record; cut or filled up with NUL to what the storage asks for
    std::string sFingering = {};
};

class NativeBytes
{
public:
    /// The header of that version.
    explicit NativeBytes(int32_t lVersion, int32_t lStaffs = 1, int32_t lCols = 150, int32_t lRows = 120)
        : lVersion(lVersion)
    {
        Long(lVersion);
        if (lVersion > 6)
            Long(static_cast<int32_t>(0x9C34B12A));
        if (lVersion > 2)
            Long(lStaffs);
        Long(1).Long(0).Long(1);
        if (lVersion >= 2)
            Long(-7).Long(99999).Long(5).Long(6).Long(lCols).Long(lRows);
    }

    NativeBytes& Add(Record const& r)
    {
        Short(r.storage - (lVersion < 4 ? 44 : 98)).Long(r.inx).Long(r.lStrX).Short(r.lDuration).Long(r.lTime);
        Short(r.lStaff).Long(r.lX).Long(r.lY).Short(r.lDiaPitch).Long(r.lA).Long(r.lB);
        Byte(r.sort).Byte(r.beam).Byte(r.up).Byte(r.fOverBar).Byte(r.fHidden);
        if (r.storage > 98)
        {
            std::string sText = r.sText;
            sText.resize(static_cast<size_t>(r.storage - 98));
            s += sText;
        }
        s += r.sFingering;
        return *this;
    }

    /// The whole file.
    std::string End()
    {
        Record end;
        end.lStrX = end.lDuration = -1;
        end.lB = end.sort = 0;
        Add(end);
        return s;
    }

    NativeBytes& Long(int32_t l) { return Put(l, 4); }
    NativeBytes& Short(int32_t l) { return Put(l, 2); }
    NativeBytes& Byte(int32_t l) { return Put(l, 1); }

    std::string s;

private:
    NativeBytes& Put(int32_t l, int32_t cb)
    {
        for (int32_t i = 0; i < cb; ++i)
            s += static_cast<char>(static_cast<uint32_t>(l) >> 8 * i);
        return *this;
    }
    int32_t lVersion;
};

/// A text element of version 4 or later.
inline Record TextRecord(int32_t sort, std::string_view sText, int32_t lStorageBeyond = 101)
{
    Record r;
    r.sort = sort;
    r.lDuration = 0;
    r.lB = 0;
    r.lA = static_cast<int32_t>(sText.size());
    r.storage = lStorageBeyond + r.lA;
    r.sText = sText;
    return r;
}
} // namespace zarn::test
