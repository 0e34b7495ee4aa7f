#include "session/setting_names.h"

namespace corvid {
namespace {

using enum SettingKind;

constexpr const wchar_t* kNone = L"ninguno";
constexpr const wchar_t* kByFlag21 = L"-1";

constexpr SettingName kSettings[] = {
    {kSessionSection, L"TimeOut", Int16, L"10"},
    {kSessionSection, L"Retries", Int16, L"3"},
    {kSessionSection, L"SkipChecks", Truth, L"False"},
    {kSessionSection, L"TestMode", Truth, L"False"},
    {kSessionSection, L"IsDebug", Truth, L"False"},
    {kSessionSection, L"DebugInmediato", Truth, L"False"},
    {kSessionSection, L"DEBUGFILE", FileName, L"FPRINTER.LOG en los documentos del usuario"},
    {kSessionSection, L"ColumnasDescripcion", Int32, L"28"},
    {kSessionSection, L"TipoPrinter", Int32, L"-1"},
    {kSessionSection, L"AnchoDireccion", Int16, L"40"},
    {kSessionSection, L"LineasDireccion", Int16, L"10"},
    {kSessionSection, L"FactorDelay", Number, L"0.3"},
    {kSessionSection, L"IndicePercibido", Int16, L"4"},
    {kSessionSection, L"LimiteEspera", Number, L"0"},
    {kSessionSection, L"RechazoEsError", Truth, L"False"},
    {kSessionSection, L"VerificarRespuesta", Truth, L"False"},
    {kSessionSection, L"SinMensajes", Truth, L"False"},
    {kSessionSection, L"DigitosPrecio", Int16, kByFlag21},
    {kSessionSection, L"DecimalesPrecio", Int16, kByFlag21},
    {kSessionSection, L"DigitosCantidad", Int16, kByFlag21},
    {kSessionSection, L"DecimalesCantidad", Int16, kByFlag21},
    {kSessionSection, L"DigitosMedio", Int16, kByFlag21},
    {kSessionSection, L"DecimalesMedio", Int16, kByFlag21},
    {kRatesSection, L"0", Rate, kNone},
    {kRatesSection, L"1", Rate, kNone},
    {kRatesSection, L"2", Rate, kNone},
    {kRatesSection, L"3", Rate, kNone},
    {kRatesSection, L"4", Rate, kNone},
    {kRatesSection, L"5", Rate, kNone},
    {kRatesSection, L"6", Rate, kNone},
    {kPortSection, L"LecturaInmediata", Truth, L"True"},
    {kPortSection, L"DEBUG", DumpSwitch, L"0"},
    {kPortSection, L"DumpFile", FileName, kNone},
};

}  // namespace

std::span<const SettingName> sessionSettings() { return kSettings; }

}  // namespace corvid
