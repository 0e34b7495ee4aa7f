// The published interface as a reader of the type library finds it.
#include "unit/registration/type_library_reader.h"

#include <gmock/gmock.h>

namespace corvid::testing {
namespace {

using ::testing::ElementsAreArray;

const std::wstring kItem =
    L"istrDescripcion As Variant, ivmPrecioNeto As Variant, idblCantidad As Variant, "
    L"ivmPorcentajeImpuesto As Variant";
const std::wstring kItemAndCode = kItem + L", Optional codigo As Variant";
const std::wstring kSeparators = L"Optional itemSep As Variant, Optional rowSep As Variant";
const std::wstring kDiscount = L"isPorcentaje As Variant, isDescuento As Variant, valor As Variant";
const std::wstring kCustomer = L"Nombre As Variant, RIF As Variant, Direccion As Variant";

TEST_F(PublishedInterface, ListsTheSessionsStateInTheOrderOfItsDeclaration) {
  const std::vector<std::wstring> expected = {
      L"1 Get result As String",
      L"1 Let result As String",
      L"2 Get resultFlag As controlValues",
      L"2 Let resultFlag As controlValues",
      L"3 Get pfError As pfErrors",
      L"3 Let pfError As pfErrors",
      L"4 Get STS1 As Long",
      L"4 Let STS1 As Long",
      L"5 Get STS2 As Long",
      L"5 Let STS2 As Long",
      L"6 Get DescripcionError As String",
      L"6 Let DescripcionError As String",
      L"7 Get SerialPrinter As String",
      L"7 Let SerialPrinter As String",
      L"8 Get s3 As IPrinterResponse3",
      L"8 Let s3 As IPrinterResponse3",
      L"8 Set s3 As IPrinterResponse3",
      L"9 Get f21 As Integer",
      L"9 Let f21 As Integer",
      L"10 Get lError As Integer",
      L"11 Get lStatus As Integer",
  };
  std::vector<std::wstring> members = membersOf(L"IPrinterFiscal");
  ASSERT_GT(members.size(), expected.size());
  members.resize(expected.size());
  EXPECT_THAT(members, ElementsAreArray(expected));
}

TEST_F(PublishedInterface, ListsTheSessionsMethodsWithTheirArguments) {
  const std::vector<std::wstring> expected = {
      L"12 tipoPrinter() As VariantesPF",
      L"30 BuildCommandBlock(command As String) As String",
      L"31 CalcXOr(s As String) As Integer",
      L"32 EscapeString(s As String) As String",
      L"40 Abrir(portNumber As Variant)",
      L"41 Cerrar()",
      L"42 AbrirGaveta() As Boolean",
      L"43 SendDirect(sCommand As String)",
      L"44 Execute(sCmd As String) As Integer",
      L"45 ExecuteNoCheck(sCmd As String)",
      L"46 SendAck()",
      L"47 GetStatus()",
      L"48 explainSTS1() As Variant",
      L"49 explainSTS2() As Variant",
      L"50 Reset() As Variant",
      L"51 NextStatusBlock() As Variant",
      L"60 GetResponse(cmd As String) As Variant",
      L"61 GetResponseString(cmd As String, Optional sep As String = \"\") As String",
      L"62 GetMultipleResponses(cmd As String) As Variant",
      L"63 GetMultipleResponsesStr(cmd As String, " + kSeparators + L") As String",
      L"64 responseItem(selector As Integer, s As Variant) As Variant",
      L"80 PasarItem(" + kItem + L") As Integer",
      L"81 RefundItem(" + kItem + L") As Integer",
      L"82 AnularItem(" + kItem + L") As Integer",
      L"83 PasarLineaFactura(" + kItem + L") As Integer",
      L"84 detalleGeneral(tipo As Variant, " + kItemAndCode + L") As Variant",
      L"85 pasarLineaFacturaG(" + kItemAndCode + L") As Integer",
      L"86 anularLineaFacturaG(" + kItemAndCode + L") As Integer",
      L"87 pasarLineaNCG(" + kItemAndCode + L") As Integer",
      L"88 anularLineaNCG(" + kItemAndCode + L") As Integer",
      L"89 IndiceTasa(idblTasa As Double) As Integer",
      L"100 PasarDatosCliente(" + kCustomer +
          L", Optional datosFactRel As Variant, Optional SerialPrinter As Variant, "
          L"Optional fechaFactura As Variant) As Variant",
      L"101 PasarDatosClienteNC(" + kCustomer +
          L", datosFactRel As Variant, SerialPrinter As Variant, fechaFactura As Variant)"
          L" As Variant",
      L"102 IniciarFactura(" + kCustomer + L") As Variant",
      L"103 PasarDatosClientePA(" + kCustomer +
          L", Optional datosFactRel As String = \"\") As Variant",
      L"104 PasarDatosClienteNCPA(" + kCustomer + L", datosFactRel As Variant) As Variant",
      L"120 SubTotal(Optional doPrint As Variant) As Boolean",
      L"121 PasarDescuento(dblPorcentaje As Variant) As Boolean",
      L"122 PasarMontoDescuento(dMonto As Variant) As Boolean",
      L"123 descuentoGeneral(" + kDiscount + L") As Variant",
      L"124 CerrarComprobante(Optional Monto As Variant) As Integer",
      L"125 CerrarConMedio(IndiceMedio As Variant, Monto As Variant) As Integer",
      L"126 CerrarNotaCredito() As Integer",
      L"127 CerrarNotaCreditoConMedio(IndiceMedio As Variant, Monto As Variant) As Integer",
      L"128 CerrarDevolucion(MedioPago As Variant, MontoDevuelto As Variant) As Integer",
      L"129 CancelarTransaccion() As Integer",
      L"140 PrintNoFiscal(sText As Variant, bCerrar As Variant) As Integer",
      L"141 ReporteDiario(sRango As Variant, sTipo As Variant) As Integer",
      L"142 SetHeader(nLineNumber As Variant, sText As Variant) As Integer",
      L"143 SetFooter(nLineNumber As Variant, sText As Variant) As Integer",
      L"144 SetDate(dtFecha As Variant) As Integer",
      L"145 SetTime(dtFecha As Variant) As Integer",
      L"146 Login(nCajero As Variant) As Integer",
      L"147 Logoff() As Integer",
      L"148 StartTraining() As Integer",
      L"149 EndTraining() As Integer",
      L"150 setFlag(Flag As Variant, Value As Variant) As Variant",
      L"151 reimprimirDocumentos(cmd As String, arg1 As Variant, arg2 As Variant)",
      L"152 reimprimirFactura(numero As Variant)",
      L"180 numeroUltimaFactura() As Long",
      L"181 NumeroUltimoCierre() As Long",
      L"182 Response1() As IPrinterResponse1",
      L"183 StatusS1() As IPrinterResponse1",
      L"184 Response2() As IPrinterResponse2",
      L"185 StatusS2() As IPrinterResponse2",
      L"186 Response3() As IPrinterResponse3",
      L"187 Response4() As IPrinterResponse4",
      L"188 StatusS3() As IPrinterResponse3",
      L"189 CerrarZ() As IResumenZ",
      L"190 ResumenZ() As IResumenZ",
      L"191 tasa(Index As Variant) As Double",
      L"192 getEstadoDocumento() As IEstadoDocumento",
      L"193 reportesZMF(desde As ByRef Variant, hasta As ByRef Variant) As IColeccionZMF",
      L"194 loadReporteZMF(numero As ByRef Variant) As IReporteZMF",
  };
  std::vector<std::wstring> members = membersOf(L"IPrinterFiscal");
  constexpr std::ptrdiff_t kStateMembers = 21;
  ASSERT_GT(members.size(), 21U);
  members.erase(members.begin(), members.begin() + kStateMembers);
  EXPECT_THAT(members, ElementsAreArray(expected));
}

TEST_F(PublishedInterface, TakesTheBuffersArgumentsByReferenceAndHasItsValueAsDefault) {
  EXPECT_THAT(membersOf(L"ICStringBuffer"),
              ElementsAreArray({L"1 Append(s As ByRef String)", L"2 AppendV(v As ByRef Variant)",
                                L"3 Remove(Index As ByRef Long, Length As ByRef Long)",
                                L"4 Insert(Index As ByRef Long, Text As ByRef String)",
                                L"5 Replace(orgText As ByRef String, NewText As ByRef String)",
                                L"0 Get Value As String", L"0 Let Value As ByRef String"}));
}

TEST_F(PublishedInterface, BeginsWithTheEnumerations) {
  const std::vector<std::vector<std::wstring>> expected = {
      {L"controlValues", L"STX=2", L"ETX=3", L"EOT=4", L"ENQ=5", L"ACK=6", L"NAK=21", L"ETB=23",
       L"RS=30", L"US=31"},
      {L"pfErrors", L"pfOk=0", L"pfCommError=1", L"pfPrinterError=2", L"pfClientError=3"},
      {L"VariantesPF", L"SRP350=0", L"DT230=1", L"HKA112=2", L"SRP812=3"},
  };
  for (UINT i = 0; i < expected.size(); ++i) EXPECT_EQ(expected[i], constantsOf(i));
}

// What a class browser shows of the library, its classes and each member must have words.
TEST_F(PublishedInterface, ExplainsItselfEverywhere) {
  EXPECT_FALSE(helpOf(*library_.get(), -1).empty());
  for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
    const ComPtr<ITypeInfo> info = typeAt(i);
    const std::wstring name = nameOf(*info.get(), MEMBERID_NIL);
    EXPECT_FALSE(helpOf(*info.get(), MEMBERID_NIL).empty()) << ::testing::PrintToString(name);
    const TypeAttributes attributes = attributesOf(*info.get());
    for (UINT member = 0; member < attributes->cFuncs; ++member) {
      const FunctionDescription function = functionAt(*info.get(), member);
      if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
      EXPECT_FALSE(helpOf(*info.get(), function->memid).empty())
          << ::testing::PrintToString(declaration(*info.get(), *function));
    }
  }
}

TEST_F(PublishedInterface, OffersEachClassThroughADualInterface) {
  const std::vector<std::wstring> expected = {
      L"PrinterFiscal",    L"PrinterResponse1", L"PrinterResponse2", L"EstadoDocumento",
      L"PrinterResponse3", L"PrinterResponse4", L"ResumenZ",         L"ReporteZMF",
      L"ColeccionZMF",     L"CStringBuffer"};
  std::vector<std::wstring> classes;
  for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
    const ComPtr<ITypeInfo> info = typeAt(i);
    const TypeAttributes attributes = attributesOf(*info.get());
    if (attributes->typekind != TKIND_COCLASS) continue;
    const std::wstring& name = classes.emplace_back(nameOf(*info.get(), MEMBERID_NIL));
    // Every class but the collection, which only a query makes.
    EXPECT_EQ(name != L"ColeccionZMF", (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0);
    HREFTYPE type = 0;
    ComPtr<ITypeInfo> offered;
    ASSERT_EQ(S_OK, info->GetRefTypeOfImplType(0, &type));
    ASSERT_EQ(S_OK, info->GetRefTypeInfo(type, offered.put()));
    EXPECT_EQ(L"I" + name, nameOf(*offered.get(), MEMBERID_NIL));
    EXPECT_NE(0, attributesOf(*offered.get())->wTypeFlags & TYPEFLAG_FDUAL);
  }
  EXPECT_THAT(classes, ElementsAreArray(expected));
}

}  // namespace
}  // namespace corvid::testing
