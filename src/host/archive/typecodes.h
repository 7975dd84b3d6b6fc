#pragma once

#include <cstdint>

// Typecodes of the .3dm container, under the names that the format's publisher gives them.

inline constexpr std::uint32_t TCODE_SHORT = 0x80000000;
inline constexpr std::uint32_t TCODE_CRC = 0x00008000;

inline constexpr std::uint32_t TCODE_COMMENTBLOCK = 0x00000001;
inline constexpr std::uint32_t TCODE_ENDOFFILE = 0x00007fff;
inline constexpr std::uint32_t TCODE_ENDOFTABLE = 0xffffffff;

inline constexpr std::uint32_t TCODE_MATERIAL_TABLE = 0x10000010;
inline constexpr std::uint32_t TCODE_LAYER_TABLE = 0x10000011;
inline constexpr std::uint32_t TCODE_LIGHT_TABLE = 0x10000012;
inline constexpr std::uint32_t TCODE_OBJECT_TABLE = 0x10000013;
inline constexpr std::uint32_t TCODE_PROPERTIES_TABLE = 0x10000014;
inline constexpr std::uint32_t TCODE_SETTINGS_TABLE = 0x10000015;
inline constexpr std::uint32_t TCODE_BITMAP_TABLE = 0x10000016;
inline constexpr std::uint32_t TCODE_USER_TABLE = 0x10000017;
inline constexpr std::uint32_t TCODE_GROUP_TABLE = 0x10000018;
inline constexpr std::uint32_t TCODE_FONT_TABLE = 0x10000019;
inline constexpr std::uint32_t TCODE_DIMSTYLE_TABLE = 0x10000020;
inline constexpr std::uint32_t TCODE_INSTANCE_DEFINITION_TABLE = 0x10000021;
inline constexpr std::uint32_t TCODE_HATCHPATTERN_TABLE = 0x10000022;
inline constexpr std::uint32_t TCODE_LINETYPE_TABLE = 0x10000023;
inline constexpr std::uint32_t TCODE_TEXTURE_MAPPING_TABLE = 0x10000025;
inline constexpr std::uint32_t TCODE_HISTORYRECORD_TABLE = 0x10000026;

// Records of the tables.
inline constexpr std::uint32_t TCODE_MATERIAL_RECORD = 0x20008040;
inline constexpr std::uint32_t TCODE_LAYER_RECORD = 0x20008050;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD = 0x20008060;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD = 0x20008070;
inline constexpr std::uint32_t TCODE_GROUP_RECORD = 0x20008073;
inline constexpr std::uint32_t TCODE_FONT_RECORD = 0x20008074;
inline constexpr std::uint32_t TCODE_DIMSTYLE_RECORD = 0x20008075;
inline constexpr std::uint32_t TCODE_INSTANCE_DEFINITION_RECORD = 0x20008076;
inline constexpr std::uint32_t TCODE_LINETYPE_RECORD = 0x20008078;

// Properties.
inline constexpr std::uint32_t TCODE_PROPERTIES_OPENNURBS_VERSION = 0xa0000026;
inline constexpr std::uint32_t TCODE_PROPERTIES_REVISIONHISTORY = 0x20008021;
inline constexpr std::uint32_t TCODE_PROPERTIES_NOTES = 0x20008022;
inline constexpr std::uint32_t TCODE_PROPERTIES_PREVIEWIMAGE = 0x20008023;
inline constexpr std::uint32_t TCODE_PROPERTIES_APPLICATION = 0x20008024;
inline constexpr std::uint32_t TCODE_PROPERTIES_COMPRESSED_PREVIEWIMAGE = 0x20008025;
inline constexpr std::uint32_t TCODE_PROPERTIES_AS_FILE_NAME = 0x20008027;

// Settings.
inline constexpr std::uint32_t TCODE_SETTINGS_UNITSANDTOLS = 0x20008031;
inline constexpr std::uint32_t TCODE_SETTINGS_RENDERMESH = 0x20008032;
inline constexpr std::uint32_t TCODE_SETTINGS_ANALYSISMESH = 0x20008033;
inline constexpr std::uint32_t TCODE_SETTINGS_NAMED_CPLANE_LIST = 0x20008035;
inline constexpr std::uint32_t TCODE_SETTINGS_NAMED_VIEW_LIST = 0x20008036;
inline constexpr std::uint32_t TCODE_SETTINGS_VIEW_LIST = 0x20008037;
inline constexpr std::uint32_t TCODE_SETTINGS_CURRENT_LAYER_INDEX = 0xa0000038;
inline constexpr std::uint32_t TCODE_SETTINGS_CURRENT_MATERIAL_INDEX = 0x20008039;
inline constexpr std::uint32_t TCODE_SETTINGS_CURRENT_COLOR = 0x2000803a;
inline constexpr std::uint32_t TCODE_SETTINGS_CURRENT_WIRE_DENSITY = 0xa000003c;
inline constexpr std::uint32_t TCODE_SETTINGS_RENDER = 0x2000803d;
inline constexpr std::uint32_t TCODE_SETTINGS_MODEL_URL = 0x20008131;
inline constexpr std::uint32_t TCODE_SETTINGS_ATTRIBUTES = 0x20008134;
inline constexpr std::uint32_t TCODE_SETTINGS_PLUGINLIST = 0x20008135;

// Parts of a view.
inline constexpr std::uint32_t TCODE_VIEW_RECORD = 0x2000803b;
inline constexpr std::uint32_t TCODE_VIEW_CPLANE = 0x2000813b;
inline constexpr std::uint32_t TCODE_VIEW_VIEWPORT = 0x2000823b;
inline constexpr std::uint32_t TCODE_VIEW_SHOWCONGRID = 0xa000033b;
inline constexpr std::uint32_t TCODE_VIEW_SHOWCONAXES = 0xa000043b;
inline constexpr std::uint32_t TCODE_VIEW_SHOWWORLDAXES = 0xa000053b;
inline constexpr std::uint32_t TCODE_VIEW_TRACEIMAGE = 0x2000863b;
inline constexpr std::uint32_t TCODE_VIEW_WALLPAPER = 0x2000873b;
inline constexpr std::uint32_t TCODE_VIEW_WALLPAPER_V3 = 0x2000874b;
inline constexpr std::uint32_t TCODE_VIEW_TARGET = 0x2000883b;
inline constexpr std::uint32_t TCODE_VIEW_NAME = 0x20008a3b;
inline constexpr std::uint32_t TCODE_VIEW_DISPLAYMODE = 0xa000093b;
inline constexpr std::uint32_t TCODE_VIEW_POSITION = 0x20008b3b;
inline constexpr std::uint32_t TCODE_VIEW_ATTRIBUTES = 0x20008c3b;

// Objects and their classes.
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_TYPE = 0x82000071;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_ATTRIBUTES = 0x02008072;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_ATTRIBUTES_USERDATA = 0x02000073;
inline constexpr std::uint32_t TCODE_OBJECT_RECORD_END = 0x8200007f;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD_ATTRIBUTES = 0x02008061;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD_ATTRIBUTES_USERDATA = 0x02000062;
inline constexpr std::uint32_t TCODE_LIGHT_RECORD_END = 0x8200006f;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS = 0x00027ffa;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_UUID = 0x0002fffb;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_DATA = 0x0002fffc;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_USERDATA = 0x00027ffd;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_USERDATA_HEADER = 0x0002fff9;
inline constexpr std::uint32_t TCODE_OPENNURBS_CLASS_END = 0x80027fff;

// The document data of a plug-in.
inline constexpr std::uint32_t TCODE_USER_TABLE_UUID = 0x20008080;
inline constexpr std::uint32_t TCODE_USER_TABLE_RECORD_HEADER = 0x20008082;
inline constexpr std::uint32_t TCODE_USER_RECORD = 0x20000081;

// Used where a chunk's owner knows what it holds.
inline constexpr std::uint32_t TCODE_ANONYMOUS_CHUNK = 0x40008000;
inline constexpr std::uint32_t TCODE_UTF8_STRING_CHUNK = 0x40008001;
inline constexpr std::uint32_t TCODE_COMPONENT_ATTRIBUTES_CHUNK = 0x40008002;
