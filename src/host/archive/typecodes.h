#pragma once

#include <cstdint>

// Typecodes of the .3dm container, under the names that the format's publisher gives them.

inline constexpr std::uint32_t TCODE_SHORT = 0x80000000;
inline constexpr std::uint32_t TCODE_CRC = 0x00008000;

inline constexpr std::uint32_t TCODE_COMMENTBLOCK = 0x00000001;
inline constexpr std::uint32_t TCODE_ENDOFFILE = 0x00007fff;
inline constexpr std::uint32_t TCODE_ENDOFTABLE = 0xffffffff;

inline constexpr std::uint32_t TCODE_ANONYMOUS_CHUNK = 0x40008000;

inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS = 0x00027ffa;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_UUID = 0x0002fffb;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_DATA = 0x0002fffc;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_USERDATA = 0x00027ffd;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_USERDATA_HEADER = 0x0002fff9;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_END = 0x80027fff;

inline constexpr std::uint32_t TCODE_LIGHT_RECORD_ATTRIBUTES = 0x02008061;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA = 0x02000062;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD_END = 0x8200006f;

inline constexpr std::uint32_t TCODE_OBJECT_RECORD_TYPE = 0x82000071;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_ATTRIBUTES = 0x02008072;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA = 0x02000073;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_END = 0x8200007f;
