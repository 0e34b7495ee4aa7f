# Not run: written from the language's documentation. A short sale in PowerShell. The console that
# runs it must have the bitness of the registered library.
$printer = New-Object -ComObject PrinterFiscalCorvid.PrinterFiscal

function Open-Session($number) {
    try {
        $printer.Abrir($number)
        return $true
    } catch {
        # 9: no such number; 6, 13: no number at all; 40001: the port does not open.
        $exception = $_.Exception.GetBaseException()
        Write-Warning ('{0}: {1}' -f ($exception.HResult -band 0xFFFF), $exception.Message)
        return $false
    }
}

function Add-Line($description, $price, $quantity, $rate) {
    [void]$printer.PasarItem($description, $price, $quantity, $rate)
    if ($printer.UltimoEnvio -eq 1) { return $true }
    Write-Warning ('{0}: {1}' -f $printer.UltimoEnvio, $printer.DescripcionError)
    return $false
}

if (Open-Session 7) {
    [void]$printer.PasarDatosCliente('MARIA PEREZ', 'V-12345678-9', 'Caracas')
    if (Add-Line 'PAN' 12.5 2 16) {
        # Methods need their parentheses. $null would count as given. False is success.
        if (-not $printer.SubTotal([Type]::Missing)) { [void]$printer.CerrarConMedio(1, 29) }
    }
    $printer.StatusS1().numeroUltimaFactura
    $printer.Cerrar()
}
