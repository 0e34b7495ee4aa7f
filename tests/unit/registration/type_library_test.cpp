// The published interface as a reader of the type library finds it.
#include "registration/type_library.h"

#include "registration/bstr.h"
#include "registration/type_descriptions.h"
#include "unit/registration/automation_host.h"

#include <gmock/gmock.h>

#include <map>

namespace corvid::testing {
namespace {

std::wstring nameOf(ITypeInfo& info, MEMBERID member) {
  Bstr name;
  info.GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
  return std::wstring(name.view());
}

template <class Described>
std::wstring helpOf(Described& described, long member) {
  Bstr help;
  described.GetDocumentation(member, nullptr, help.put(), nullptr, nullptr);
  return std::wstring(help.view());
}

std::wstring typeName(ITypeInfo& info, const TYPEDESC& type) {
  static const std::map<VARTYPE, std::wstring> names = {
      {VT_I2, L"Integer"},   {VT_I4, L"Long"},         {VT_R8, L"Double"},
      {VT_CY, L"Currency"},  {VT_DATE, L"Date"},       {VT_BSTR, L"String"},
      {VT_BOOL, L"Boolean"}, {VT_VARIANT, L"Variant"}, {VT_VOID, L""}};
  if (type.vt == VT_PTR) {
    const std::wstring inner = typeName(info, *type.lptdesc);
    return type.lptdesc->vt == VT_USERDEFINED ? inner : L"ByRef " + inner;
  }
  if (type.vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> named;
    info.GetRefTypeInfo(type.hreftype, named.put());
    return nameOf(*named.get(), MEMBERID_NIL);
  }
  const auto found = names.find(type.vt);
  return found == names.end() ? L"type " + std::to_wstring(type.vt) : found->second;
}

std::wstring defaultOf(const PARAMDESC& parameter) {
  if ((parameter.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0) return {};
  Variant value;
  VariantCopy(value.put(), &parameter.pparamdescex->varDefaultValue);
  return L" = \"" + textIn(value) + L"\"";
}

std::vector<std::wstring> argumentNames(ITypeInfo& info, const FUNCDESC& member) {
  std::vector<BSTR> names(static_cast<std::size_t>(member.cParams) + 1);
  UINT count = 0;
  info.GetNames(member.memid, names.data(), static_cast<UINT>(names.size()), &count);
  std::vector<std::wstring> copies;
  for (UINT i = 0; i < names.size(); ++i) {
    if (i > 0) copies.emplace_back(viewOf(names[i]));
    SysFreeString(names[i]);
  }
  return copies;
}

std::wstring argumentsOf(ITypeInfo& info, const FUNCDESC& member) {
  const std::vector<std::wstring> names = argumentNames(info, member);
  std::wstring list;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const ELEMDESC& parameter = member.lprgelemdescParam[i];
    const bool isOptional = (parameter.paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
    list += i == 0 ? L"" : L", ";
    list += std::wstring(isOptional ? L"Optional " : L"") + names[i] + L" As " +
            typeName(info, parameter.tdesc) + defaultOf(parameter.paramdesc);
  }
  return list;
}

// As a class browser writes it, behind the dispatch identifier.
std::wstring declaration(ITypeInfo& info, const FUNCDESC& member) {
  const std::wstring name = std::to_wstring(member.memid) + L" ";
  const std::wstring rest = nameOf(info, member.memid);
  const std::wstring result = typeName(info, member.elemdescFunc.tdesc);
  switch (member.invkind) {
    case INVOKE_PROPERTYGET:
      return name + L"Get " + rest + L" As " + result;
    case INVOKE_PROPERTYPUT:
      return name + L"Let " + rest + L" As " + typeName(info, member.lprgelemdescParam[0].tdesc);
    case INVOKE_PROPERTYPUTREF:
      return name + L"Set " + rest + L" As " + typeName(info, member.lprgelemdescParam[0].tdesc);
    default:
      return name + rest + L"(" + argumentsOf(info, member) + L")" +
             (result.empty() ? L"" : L" As " + result);
  }
}

class PublishedInterface : public AutomationTest {
 protected:
  PublishedInterface() { EXPECT_EQ(S_OK, openTypeLibrary(TypeLibraryUse::Load, library_)); }

  ComPtr<ITypeInfo> typeAt(UINT index) {
    ComPtr<ITypeInfo> info;
    library_->GetTypeInfo(index, info.put());
    return info;
  }
  ComPtr<ITypeInfo> typeNamed(const std::wstring& name) {
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
      ComPtr<ITypeInfo> info = typeAt(i);
      if (nameOf(*info.get(), MEMBERID_NIL) == name) return info;
    }
    ADD_FAILURE() << "no such type";
    return {};
  }
  std::vector<std::wstring> membersOf(const std::wstring& name) {
    const ComPtr<ITypeInfo> info = typeNamed(name);
    const TypeAttributes attributes = attributesOf(*info.get());
    std::vector<std::wstring> members;
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
      const FunctionDescription member = functionAt(*info.get(), i);
      // The seven members of IUnknown and IDispatch come first and are marked.
      if ((member->wFuncFlags & FUNCFLAG_FRESTRICTED) != 0) continue;
      members.push_back(declaration(*info.get(), *member));
    }
    return members;
  }

  std::vector<std::wstring> constantsOf(UINT index) {
    const ComPtr<ITypeInfo> info = typeAt(index);
    const TypeAttributes attributes = attributesOf(*info.get());
    std::vector<std::wstring> constants = {nameOf(*info.get(), MEMBERID_NIL)};
    for (UINT i = 0; i < attributes->cVars; ++i) {
      VARDESC* constant = nullptr;
      info->GetVarDesc(i, &constant);
      constants.push_back(nameOf(*info.get(), constant->memid) + L"=" +
                          std::to_wstring(V_I4(constant->lpvarValue)));
      info->ReleaseVarDesc(constant);
    }
    return constants;
  }

  ComPtr<ITypeLib> library_;
};

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
      L"182 Response1() As IPrinterResponse1",
      L"183 StatusS1() As IPrinterResponse1",
      L"186 Response3() As IPrinterResponse3",
      L"188 StatusS3() As IPrinterResponse3",
  };
  std::vector<std::wstring> members = membersOf(L"IPrinterFiscal");
  constexpr std::ptrdiff_t kStateMembers = 21;
  ASSERT_GT(members.size(), 21U);
  members.erase(members.begin(), members.begin() + kStateMembers);
  EXPECT_THAT(members, ElementsAreArray(expected));
}

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

TEST_F(PublishedInterface, ListsTheRecords) {
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
  for (const wchar_t* name :
       {L"PrinterFiscal", L"PrinterResponse1", L"PrinterResponse3", L"CStringBuffer"}) {
    const ComPtr<ITypeInfo> info = typeNamed(name);
    ASSERT_TRUE(info);
    const TypeAttributes attributes = attributesOf(*info.get());
    EXPECT_EQ(TKIND_COCLASS, attributes->typekind);
    EXPECT_NE(0, attributes->wTypeFlags & TYPEFLAG_FCANCREATE);
    HREFTYPE type = 0;
    ComPtr<ITypeInfo> offered;
    ASSERT_EQ(S_OK, info->GetRefTypeOfImplType(0, &type));
    ASSERT_EQ(S_OK, info->GetRefTypeInfo(type, offered.put()));
    EXPECT_EQ(std::wstring(L"I") + name, nameOf(*offered.get(), MEMBERID_NIL));
    EXPECT_NE(0, attributesOf(*offered.get())->wTypeFlags & TYPEFLAG_FDUAL);
  }
}

}  // namespace
}  // namespace corvid::testing
