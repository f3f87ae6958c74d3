// L'interface D2XX de FTDI, telle que FTDI la publie : ce qu'il faut pour l'appeler par son nom.
#pragma once

#include <cstdint>

using FT_HANDLE = void*;
using FT_STATUS = std::uint32_t;

inline constexpr FT_STATUS FT_OK = 0;
inline constexpr std::uint8_t FT_BITS_8 = 8;
inline constexpr std::uint8_t FT_STOP_BITS_2 = 2;
inline constexpr std::uint8_t FT_PARITY_NONE = 0;
inline constexpr std::uint16_t FT_FLOW_NONE = 0;
inline constexpr std::uint32_t FT_PURGE_RX = 1;
inline constexpr std::uint32_t FT_PURGE_TX = 2;

using FonctionOpen = FT_STATUS (*)(int, FT_HANDLE*);
using FonctionPoignee = FT_STATUS (*)(FT_HANDLE); // ResetDevice, Close, SetBreakOn, SetBreakOff
using FonctionSetBaudRate = FT_STATUS (*)(FT_HANDLE, std::uint32_t);
using FonctionSetDataCharacteristics = FT_STATUS (*)(FT_HANDLE, std::uint8_t, std::uint8_t,
                                                     std::uint8_t);
using FonctionSetFlowControl = FT_STATUS (*)(FT_HANDLE, std::uint16_t, std::uint8_t, std::uint8_t);
using FonctionPurge = FT_STATUS (*)(FT_HANDLE, std::uint32_t);
using FonctionWrite = FT_STATUS (*)(FT_HANDLE, void*, std::uint32_t, std::uint32_t*);
