// The published interfaces of the records as a reader of the type library finds them.
#include "unit/registration/type_library_reader.h"

#include <gmock/gmock.h>

namespace corvid::testing {
namespace {

using ::testing::ElementsAreArray;
using PublishedRecords = PublishedInterface;

// Properties come in pairs; the expected list names each once.
std::vector<std::wstring> pairs(const std::vector<std::wstring>& properties) {
  std::vector<std::wstring> members;
  for (std::size_t i = 0; i < properties.size(); ++i) {
    members.push_back(std::to_wstring(i + 1) + L" Get " + properties[i]);
    members.push_back(std::to_wstring(i + 1) + L" Let " + properties[i]);
  }
  return members;
}

std::vector<std::wstring> with(std::vector<std::wstring> members,
                               const std::vector<std::wstring>& more) {
  members.insert(members.end(), more.begin(), more.end());
  return members;
}

std::vector<std::wstring> amounts(std::vector<std::wstring> names) {
  for (std::wstring& name : names) name += L" As Currency";
  return names;
}

TEST_F(PublishedRecords, ListTheCountersAndTheRates) {
  const auto counters =
      pairs({L"numeroCajero As Integer", L"totalVentasDiarias As Currency",
             L"numeroUltimaFactura As Long", L"facturasDia As Long", L"ultimoDNF As Long",
             L"ndfDia As Long", L"nCierres As Long", L"contadorReportes As Long", L"RIF As String",
             L"Serial As String", L"Fecha As Date", L"numeroUltimaND As Long",
             L"notasDebitoDia As Integer", L"numeroUltimaNC As Long", L"notasCreditoDia As Integer",
             L"isFake As Boolean"});
  EXPECT_THAT(
      membersOf(L"IPrinterResponse1"),
      ElementsAreArray(with(counters, {L"20 loadFake()", L"21 loadFromResponse(s As String)",
                                       L"22 toString() As String"})));
  const auto rates =
      pairs({L"TipoTasa1 As Boolean", L"ValorTasa1 As Double", L"TipoTasa2 As Boolean",
             L"ValorTasa2 As Double", L"TipoTasa3 As Boolean", L"ValorTasa3 As Double",
             L"nFlags As Integer", L"isFake As Boolean", L"TasaIGTF As Double"});
  EXPECT_THAT(membersOf(L"IPrinterResponse3"),
              ElementsAreArray(with(rates, {L"20 loadFake()", L"21 loadFromResponse(v As Variant)",
                                            L"22 Flag(n As Integer) As Integer",
                                            L"23 imagenIncluido(t As Variant) As String",
                                            L"24 toString() As String"})));
}

TEST_F(PublishedRecords, ListTheOpenDocumentAndThePayments) {
  const auto document = pairs({L"subTotalVenta As Currency", L"subTotalImpuestos As Currency",
                               L"cantidadItems As Double", L"total As Currency",
                               L"cantidadPagos As Integer", L"tipoTrans As Integer"});
  EXPECT_THAT(
      membersOf(L"IPrinterResponse2"),
      ElementsAreArray(with(document, {L"20 loadFake()", L"21 loadFromResponse(v As ByRef Variant)",
                                       L"22 toString() As String"})));
  const auto state = pairs({L"subTotalBasesImponibles As Currency", L"subTotalIVA As Currency",
                            L"NotaS2 As String", L"MontoPorPagar As Currency",
                            L"numeroPagosRealizados As Integer", L"estado As Integer"});
  EXPECT_THAT(membersOf(L"IEstadoDocumento"),
              ElementsAreArray(with(state, {L"20 loadFromResponse(v As ByRef Variant)",
                                            L"21 toString() As String"})));
  EXPECT_THAT(membersOf(L"IPrinterResponse4"),
              ElementsAreArray({L"1 Get isFake As Boolean", L"1 Let isFake As Boolean",
                                L"2 Get nMedios As Integer", L"20 loadFake()",
                                L"21 loadFromResponse(r As Variant)",
                                L"22 valor(n As Variant) As Currency"}));
}

TEST_F(PublishedRecords, ListTheDailySummary) {
  const auto summary = pairs(with(
      {L"numeroUltimoZ As Integer", L"fechaUltimoReporte As Date", L"numeroUltimaFactura As Long",
       L"fechaUltimaFactura As Date", L"ultimaNC As Long", L"ultimaND As Long",
       L"ultimoDNF As Long"},
      amounts(
          {L"ventasExentas", L"baseVG",          L"impuestoVG",  L"baseIR",       L"impuestoIR",
           L"baseIA",        L"impuestoIA",      L"exentoND",    L"baseVGND",     L"impuestoVGND",
           L"baseIRND",      L"impuestoIRND",    L"baseIAND",    L"impuestoIAND", L"exentoNC",
           L"baseVGNC",      L"impuestoVGNC",    L"baseIRNC",    L"impuestoIRNC", L"baseIANC",
           L"impuestoIANC",  L"percibidoVentas", L"percibidoND", L"percibidoNC",  L"BaseIGTF",
           L"ValorIGTF",     L"BaseIGTFND",      L"IGTFND",      L"BaseIGTFNC",   L"IGTFNC"})));
  EXPECT_THAT(membersOf(L"IResumenZ"),
              ElementsAreArray(with(summary, {L"60 load(printer As IPrinterFiscal)",
                                              L"61 Refresh(printer As IPrinterFiscal)",
                                              L"62 toString() As String"})));
}

TEST_F(PublishedRecords, ListTheClosuresAndTheirCollection) {
  const auto closure = pairs(with(
      {L"numeroCierre As Integer", L"fechaCierre As Date", L"horaCierre As Date",
       L"numeroUltimaFactura As Long", L"fechaUltimaFactura As Date", L"horaUltimaFactura As Date"},
      amounts({L"ventasExentas", L"baseVG", L"impuestoVG", L"baseIR", L"impuestoIR", L"NCExentas",
               L"baseNCVG", L"impuestoNCVG", L"baseNCIR", L"impuestoNCIR"})));
  EXPECT_THAT(
      membersOf(L"IReporteZMF"),
      ElementsAreArray(with(
          closure, {L"20 loadFromResponse(response As Variant)", L"21 toString() As Variant",
                    L"22 load(printer As IPrinterFiscal, numero As ByRef Variant) As Boolean"})));
  EXPECT_THAT(
      membersOf(L"IColeccionZMF"),
      ElementsAreArray({L"0 Get Item(Index As Variant) As IReporteZMF", L"1 Get Count As Long"}));
}

}  // namespace
}  // namespace corvid::testing
