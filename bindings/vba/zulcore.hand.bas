' --- Helpers: lengths asked for, texts in UTF-8, errors raised ---------------------------------------------
' A call that the library refuses raises vbObjectError + the code; Err.Description has its name and text.
' Keys are byte arrays that mean nothing outside of this process. They and other secrets come through arguments, so that
' no copies stay behind: wipe them with zulWipe when done, which also empties Err. Names of files are in the code page of
' Windows; a name that it cannot write is refused, and so is a text with a zero character.

Private Declare PtrSafe Function LoadLibraryW Lib "kernel32" (ByVal lpFileName As LongPtr) As LongPtr

Private Const kErrorBase As Long = -2147221504 ' vbObjectError
Private Const kLongestKey As Long = 90000
Private Const kLongestReport As Long = 67108864
Private Const kLongestDetail As Long = 511
Private Const kPiece As Long = 65536
Private Const kTagAndNonce As Long = 28

Private noByte As Byte

' Loads zulcore.dll from a place where Windows does not look for it, before anything else is called: from fileName, else
' from the variable ZULCORE_LIBRARY. A workbook calls zulLoad ThisWorkbook.Path & "\zulcore.dll".
Public Sub zulLoad(Optional ByVal fileName As String = "")
    If Len(fileName) = 0 Then fileName = Environ$("ZULCORE_LIBRARY")
    If Len(fileName) = 0 Then Exit Sub
    If LoadLibraryW(StrPtr(fileName)) = 0 Then zulRefuse OPEN_ERROR, "cannot load " & fileName
End Sub

' --- Errors ---

' Raises for a negative result and gives any other one back: for functions that return a length.
Public Function zulCheck(ByVal result As Long) As Long
    If result < 0 Then zulFail -result
    zulCheck = result
End Function

' Raises for any result but 0: for functions that return a status.
Public Sub zulCheckStatus(ByVal result As Long)
    If result <> 0 Then zulFail Abs(result)
End Sub

Private Sub zulFail(ByVal code As Long)
    Dim room(0 To kLongestDetail) As Byte, detail As String
    detail = zulTextOf(room, ZUL_LastErrorPtr(VarPtr(room(0)), kLongestDetail))
    ' The name of a file in it is in the code page.
    If InStr(1, detail, zulUnit(&HFFFD&), vbBinaryCompare) > 0 Then detail = Split(StrConv(room, vbUnicode), ChrW$(0))(0)
    If Len(detail) > 0 Then detail = ": " & detail
    zulRefuse code, zulErrorText(code) & detail
End Sub

Private Sub zulRefuse(ByVal code As Long, ByVal detail As String)
    Err.Raise kErrorBase + code, "zulcore", zulErrorName(code) & " (" & CStr(code) & "): " & detail
End Sub

' The general text of an error code.
Public Function zulErrorText(ByVal code As Long) As String
    Dim room() As Byte, count As Long
    count = ZUL_ErrorLookupPtr(0, 0, code)
    ReDim room(0 To count)
    zulErrorText = zulTextOf(room, ZUL_ErrorLookupPtr(VarPtr(room(0)), count + 1, code))
End Function

' --- Bytes and texts ---

' The number of bytes in an array, which may be one that was never given a size.
Public Function zulLength(ByRef data() As Byte) As Long
    On Error Resume Next
    zulLength = UBound(data) - LBound(data) + 1
End Function

Private Function zulDataAt(ByRef data() As Byte) As LongPtr
    If zulLength(data) = 0 Then
        zulDataAt = VarPtr(noByte)
    Else
        zulDataAt = VarPtr(data(LBound(data)))
    End If
End Function

' 0 for an empty text.
Private Function zulTextAt(ByRef zeroEnded() As Byte) As LongPtr
    If zulLength(zeroEnded) > 1 Then zulTextAt = VarPtr(zeroEnded(0))
End Function

' The bytes of a text in UTF-8. An empty text gives an array without a size.
Public Function zulUtf8(ByVal source As String) As Byte()
    Dim bytes() As Byte, count As Long, i As Long
    bytes = zulZero(source)
    count = zulLength(bytes) - 1
    If count > 0 Then
        Dim result() As Byte
        ReDim result(0 To count - 1)
        For i = 0 To count - 1
            result(i) = bytes(i)
            bytes(i) = 0
        Next
        zulUtf8 = result
    End If
End Function

' A text in UTF-8 with a zero byte behind it.
Private Function zulZero(ByVal source As String) As Byte()
    Dim wide() As Byte, bytes() As Byte, used As Long, i As Long, code As Long, low As Long
    ReDim wide(0 To Len(source) * 3)
    i = 1
    Do While i <= Len(source)
        code = AscW(Mid$(source, i, 1)) And &HFFFF&
        If code = 0 Then zulRefuse BAD_PARAM_ERROR, "a text with a zero character"
        If code >= &HD800& And code <= &HDFFF& Then
            low = 0
            If i < Len(source) Then low = AscW(Mid$(source, i + 1, 1)) And &HFFFF&
            If code >= &HDC00& Or low < &HDC00& Or low > &HDFFF& Then
                zulRefuse INVALID_DATA_ERROR, "a text with half of a character"
            End If
            code = &H10000 + (code - &HD800&) * &H400& + (low - &HDC00&)
            i = i + 1
        End If
        If code < &H80& Then
            wide(used) = code
            used = used + 1
        ElseIf code < &H800& Then
            wide(used) = &HC0& Or (code \ &H40&)
            wide(used + 1) = &H80& Or (code And &H3F&)
            used = used + 2
        ElseIf code < &H10000 Then
            wide(used) = &HE0& Or (code \ &H1000&)
            wide(used + 1) = &H80& Or ((code \ &H40&) And &H3F&)
            wide(used + 2) = &H80& Or (code And &H3F&)
            used = used + 3
        Else
            wide(used) = &HF0& Or (code \ &H40000)
            wide(used + 1) = &H80& Or ((code \ &H1000&) And &H3F&)
            wide(used + 2) = &H80& Or ((code \ &H40&) And &H3F&)
            wide(used + 3) = &H80& Or (code And &H3F&)
            used = used + 4
        End If
        i = i + 1
    Loop
    ReDim bytes(0 To used)
    For i = 0 To used - 1
        bytes(i) = wide(i)
        wide(i) = 0
    Next
    zulZero = bytes
End Function

' A name in the code page of Windows with a zero byte behind it.
Private Function zulZeroName(ByVal fileName As String) As Byte()
    Dim bytes() As Byte
    If InStr(1, fileName, ChrW$(0), vbBinaryCompare) > 0 Then zulRefuse BAD_PARAM_ERROR, "a name with a zero character"
    bytes = StrConv(fileName & ChrW$(0), vbFromUnicode)
    If StrConv(bytes, vbUnicode) <> fileName & ChrW$(0) Then
        zulRefuse BAD_PARAM_ERROR, "a name that the code page of Windows cannot write"
    End If
    zulZeroName = bytes
End Function

' The text that count bytes of UTF-8 are. What is not UTF-8 becomes U+FFFD.
Public Function zulTextOf(ByRef bytes() As Byte, ByVal count As Long) As String
    Dim result As String, used As Long, i As Long, more As Long, k As Long, code As Long, good As Boolean
    result = Space$(count)
    i = LBound(bytes)
    count = count + i
    Do While i < count
        code = bytes(i)
        more = 0
        If code >= &HF0& And code < &HF5& Then
            more = 3
            code = code And &H7&
        ElseIf code >= &HE0& And code < &HF0& Then
            more = 2
            code = code And &HF&
        ElseIf code >= &HC2& And code < &HE0& Then
            more = 1
            code = code And &H1F&
        End If
        good = (more > 0 Or code < &H80&) And i + more < count
        If good Then
            For k = 1 To more
                If (bytes(i + k) And &HC0&) <> &H80& Then good = False
                code = (code * &H40&) Or (bytes(i + k) And &H3F&)
            Next
            If more = 2 And code < &H800& Then good = False
            If more = 3 And (code < &H10000 Or code > &H10FFFF) Then good = False
            If code >= &HD800& And code <= &HDFFF& Then good = False
        End If
        If Not good Then
            code = &HFFFD&
            more = 0
        End If
        If code >= &H10000 Then
            Mid$(result, used + 1, 1) = zulUnit(&HD800& + (code - &H10000) \ &H400&)
            Mid$(result, used + 2, 1) = zulUnit(&HDC00& + ((code - &H10000) And &H3FF&))
            used = used + 2
        Else
            Mid$(result, used + 1, 1) = zulUnit(code)
            used = used + 1
        End If
        i = i + more + 1
    Loop
    zulTextOf = Left$(result, used)
End Function

' ChrW takes what an Integer holds.
Private Function zulUnit(ByVal code As Long) As String
    If code > &H7FFF& Then code = code - &H10000
    zulUnit = ChrW$(code)
End Function

Public Function zulHex(ByRef data() As Byte) As String
    Dim result As String, i As Long, used As Long
    result = Space$(zulLength(data) * 2)
    For i = 1 To zulLength(data)
        Mid$(result, used + 1, 2) = LCase$(Right$("0" & Hex$(data(LBound(data) + i - 1)), 2))
        used = used + 2
    Next
    zulHex = result
End Function

Public Function zulUnhex(ByVal digits As String) As Byte()
    Dim result() As Byte, i As Long, high As Long, low As Long
    If Len(digits) = 0 Then Exit Function
    If Len(digits) Mod 2 <> 0 Then zulRefuse INVALID_DATA_ERROR, "an odd number of hex digits"
    ReDim result(0 To Len(digits) \ 2 - 1)
    For i = 0 To UBound(result)
        high = InStr(1, "0123456789abcdef", LCase$(Mid$(digits, 2 * i + 1, 1)), vbBinaryCompare) - 1
        low = InStr(1, "0123456789abcdef", LCase$(Mid$(digits, 2 * i + 2, 1)), vbBinaryCompare) - 1
        If high < 0 Or low < 0 Then zulRefuse INVALID_DATA_ERROR, "not a hex digit"
        result(i) = high * 16 + low
    Next
    zulUnhex = result
End Function

Public Function zulBase64(ByRef data() As Byte) As String
    Dim room() As Byte, count As Long
    count = zulCheck(CNV_B64StrFromBytesPtr(0, 0, zulDataAt(data), zulLength(data)))
    ReDim room(0 To count)
    count = zulCheck(CNV_B64StrFromBytesPtr(VarPtr(room(0)), count, zulDataAt(data), zulLength(data)))
    zulBase64 = zulTextOf(room, count)
End Function

Public Function zulUnbase64(ByVal source As String) As Byte()
    Dim bytes() As Byte, result() As Byte, count As Long
    bytes = zulZero(source)
    count = zulCheck(CNV_BytesFromB64StrPtr(0, 0, VarPtr(bytes(0))))
    If count = 0 Then Exit Function
    ReDim result(0 To count - 1)
    zulCheck CNV_BytesFromB64StrPtr(VarPtr(result(0)), count, VarPtr(bytes(0)))
    zulUnbase64 = result
End Function

' --- Wiping and random numbers ---

' Zeroes an array and takes its size away. A call of the library would empty what it has to say about the call before.
Public Sub zulWipe(ByRef data() As Byte)
    Dim i As Long
    If zulLength(data) > 0 Then
        For i = LBound(data) To UBound(data)
            data(i) = 0
        Next
    End If
    Erase data
End Sub

Public Sub zulWipeFile(ByVal fileName As String)
    Dim bytes() As Byte
    bytes = zulZeroName(fileName)
    zulCheckStatus WIPE_FilePtr(VarPtr(bytes(0)), 0)
End Sub

Public Sub zulRandomBytes(ByRef data() As Byte, ByVal count As Long)
    Dim done As Long, piece As Long
    If count < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a count below 1"
    ReDim data(0 To count - 1)
    Do While done < count
        piece = count - done
        If piece > kPiece Then piece = kPiece
        zulCheckStatus RNG_BytesPtr(VarPtr(data(done)), piece, 0, 0)
        done = done + piece
    Loop
End Sub

' A uniform number from lower to upper, both included.
Public Function zulRandomNumber(ByVal lower As Long, ByVal upper As Long) As Long
    If lower > upper Or CDbl(upper) - CDbl(lower) >= 4294967295# Then
        zulRefuse OUT_OF_RANGE_ERROR, "no such range of numbers"
    End If
    zulRandomNumber = RNG_Number(lower, upper)
End Function

' --- Digests and MACs ---

' context is for zulHashAdd and zulHashEnd, which ends it.
Public Sub zulHashBegin(ByRef context() As Byte, Optional ByVal algorithm As String = "sha256")
    Dim alg() As Byte
    alg = zulZero(algorithm)
    ReDim context(0 To zulCheck(HASH_BeginPtr(0, 0, VarPtr(alg(0)), 0)) - 1)
    zulCheck HASH_BeginPtr(VarPtr(context(0)), UBound(context) + 1, VarPtr(alg(0)), 0)
End Sub

Public Sub zulHashAdd(ByRef context() As Byte, ByRef data() As Byte)
    zulCheckStatus HASH_AddPtr(VarPtr(context(0)), zulDataAt(data), zulLength(data))
End Sub

Public Function zulHashEnd(ByRef context() As Byte) As Byte()
    Dim result() As Byte
    ReDim result(0 To zulCheck(HASH_EndPtr(0, 0, VarPtr(context(0)))) - 1)
    zulCheck HASH_EndPtr(VarPtr(result(0)), UBound(result) + 1, VarPtr(context(0)))
    zulHashEnd = result
End Function

Public Function zulHash(ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As Byte()
    Dim context() As Byte
    zulHashBegin context, algorithm
    zulHashAdd context, data
    zulHash = zulHashEnd(context)
End Function

Public Function zulHashHex(ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As String
    Dim digest() As Byte
    digest = zulHash(data, algorithm)
    zulHashHex = zulHex(digest)
End Function

' The digest of a text in UTF-8.
Public Function zulHashTextHex(ByVal source As String, Optional ByVal algorithm As String = "sha256") As String
    Dim bytes() As Byte
    bytes = zulUtf8(source)
    zulHashTextHex = zulHashHex(bytes, algorithm)
End Function

' Of a file: sha1, sha224, sha256, sha384, sha512, md5 or md2.
Public Function zulHashFileHex(ByVal fileName As String, Optional ByVal algorithm As String = "sha256") As String
    Dim bytes() As Byte, room() As Byte, count As Long, number As Long
    Select Case LCase$(algorithm)
        Case "sha1": number = ZUL_HASH_SHA1
        Case "sha224": number = ZUL_HASH_SHA224
        Case "sha256": number = ZUL_HASH_SHA256
        Case "sha384": number = ZUL_HASH_SHA384
        Case "sha512": number = ZUL_HASH_SHA512
        Case "md5": number = ZUL_HASH_MD5
        Case "md2": number = ZUL_HASH_MD2
        Case Else: zulRefuse NOT_SUPPORTED_ERROR, "no such digest of files: " & algorithm
    End Select
    bytes = zulZeroName(fileName)
    count = zulCheck(HASH_HexFromFilePtr(0, 0, VarPtr(bytes(0)), number))
    ReDim room(0 To count)
    count = zulCheck(HASH_HexFromFilePtr(VarPtr(room(0)), count, VarPtr(bytes(0)), number))
    zulHashFileHex = zulTextOf(room, count)
End Function

Public Function zulHmac(ByRef key() As Byte, ByRef data() As Byte, Optional ByVal algorithm As String = "sha256") As Byte()
    Dim alg() As Byte, context() As Byte, result() As Byte
    alg = zulZero(algorithm)
    ReDim context(0 To zulCheck(HMAC_BeginPtr(0, 0, zulDataAt(key), zulLength(key), VarPtr(alg(0)), 0)) - 1)
    zulCheck HMAC_BeginPtr(VarPtr(context(0)), UBound(context) + 1, zulDataAt(key), zulLength(key), VarPtr(alg(0)), 0)
    zulCheckStatus HMAC_AddPtr(VarPtr(context(0)), zulDataAt(data), zulLength(data))
    ReDim result(0 To zulCheck(HMAC_EndPtr(0, 0, VarPtr(context(0)))) - 1)
    zulCheck HMAC_EndPtr(VarPtr(result(0)), UBound(result) + 1, VarPtr(context(0)))
    zulHmac = result
End Function

' --- Encryption with a key, keys from passwords ---

' A random nonce stands before the result, from where zulDecrypt takes it.
Public Function zulEncrypt(ByRef key() As Byte, ByRef data() As Byte, ByRef aad() As Byte, _
    Optional ByVal algorithm As String = "aes-256-gcm") As Byte()
    Dim alg() As Byte, result() As Byte
    alg = zulZero(algorithm)
    ReDim result(0 To zulLength(data) + kTagAndNonce - 1)
    zulCheck AEAD_EncryptPtr(VarPtr(result(0)), UBound(result) + 1, zulDataAt(data), zulLength(data), zulDataAt(key), _
        zulLength(key), 0, 0, zulDataAt(aad), zulLength(aad), VarPtr(alg(0)), ZUL_AEAD_RANDOM_NONCE)
    zulEncrypt = result
End Function

' plain has no size if the message is empty.
Public Sub zulDecrypt(ByRef plain() As Byte, ByRef key() As Byte, ByRef data() As Byte, ByRef aad() As Byte, _
    Optional ByVal algorithm As String = "aes-256-gcm")
    Dim alg() As Byte, count As Long
    alg = zulZero(algorithm)
    count = zulLength(data) - kTagAndNonce
    Erase plain
    If count > 0 Then ReDim plain(0 To count - 1)
    zulCheck AEAD_DecryptPtr(zulDataAt(plain), zulLength(plain), zulDataAt(data), zulLength(data), zulDataAt(key), _
        zulLength(key), 0, 0, zulDataAt(aad), zulLength(aad), VarPtr(alg(0)), ZUL_AEAD_RANDOM_NONCE)
End Sub

Public Sub zulPbkdf2(ByRef key() As Byte, ByVal size As Long, ByVal password As String, ByRef salt() As Byte, _
    Optional ByVal iterations As Long = 600000, Optional ByVal hash As String = "sha256")
    Dim secret() As Byte, digest() As Byte, result As Long
    If size < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a size below 1"
    digest = zulZero(hash)
    secret = zulZero(password)
    ReDim key(0 To size - 1)
    result = KDF_Pbkdf2Ptr(VarPtr(key(0)), size, VarPtr(secret(0)), UBound(secret), zulDataAt(salt), zulLength(salt), _
        iterations, VarPtr(digest(0)))
    zulWipe secret
    zulCheck result
End Sub

Public Sub zulArgon2id(ByRef key() As Byte, ByVal size As Long, ByVal password As String, ByRef salt() As Byte, _
    Optional ByVal memoryKiB As Long = 65536, Optional ByVal passes As Long = 3, Optional ByVal lanes As Long = 4)
    Dim secret() As Byte, result As Long
    If size < 1 Then zulRefuse OUT_OF_RANGE_ERROR, "a size below 1"
    secret = zulZero(password)
    ReDim key(0 To size - 1)
    result = KDF_Argon2idPtr(VarPtr(key(0)), size, VarPtr(secret(0)), UBound(secret), zulDataAt(salt), zulLength(salt), _
        memoryKiB, passes, lanes)
    zulWipe secret
    zulCheck result
End Sub

' --- Keys ---

' A key string of the library is text: without the zero byte at its end the library would read beyond the array.
Private Function zulKeyAt(ByRef key() As Byte) As LongPtr
    If zulLength(key) < 2 Then zulRefuse INVALID_DATA_ERROR, "not a key, or one that was wiped"
    If key(UBound(key)) <> 0 Then zulRefuse INVALID_DATA_ERROR, "not a key"
    zulKeyAt = VarPtr(key(LBound(key)))
End Function

Private Sub zulKeepKey(ByRef key() As Byte, ByRef room() As Byte, ByVal count As Long)
    Dim i As Long
    zulWipe key
    If count >= 0 Then
        ReDim key(0 To count)
        For i = 0 To count - 1
            key(i) = room(i)
        Next
    End If
End Sub

' "rsa" (3072 bits), "rsa-4096", "p-256", "p-384", "p-521", "ed25519" or "x25519".
Public Sub zulKeyMake(ByRef key() As Byte, ByVal kind As String)
    Dim word() As Byte, room() As Byte, count As Long
    word = zulZero(kind)
    ReDim room(0 To kLongestKey)
    count = KEY_MakePtr(VarPtr(room(0)), kLongestKey, VarPtr(word(0)), 0)
    zulKeepKey key, room, count
    zulWipe room
    zulCheck count
End Sub

' From a file or text of a key, certificate or request.
Public Sub zulKeyRead(ByRef key() As Byte, ByVal fileOrText As String, Optional ByVal password As String = "")
    Dim source() As Byte, secret() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileOrText)
    secret = zulZero(password)
    ReDim room(0 To kLongestKey)
    count = KEY_ReadPtr(VarPtr(room(0)), kLongestKey, VarPtr(source(0)), VarPtr(secret(0)), 0)
    zulKeepKey key, room, count
    zulWipe secret
    zulWipe room
    zulCheck count
End Sub

Public Sub zulKeyPublic(ByRef publicKey() As Byte, ByRef key() As Byte)
    Dim room() As Byte, count As Long
    ReDim room(0 To kLongestKey)
    count = KEY_PublicPtr(VarPtr(room(0)), kLongestKey, zulKeyAt(key))
    zulKeepKey publicKey, room, count
    zulWipe room
    zulCheck count
End Sub

' Writes PEM: a public key as it is, a private key encrypted under a password.
Public Sub zulKeySave(ByRef key() As Byte, ByVal fileName As String, Optional ByVal password As String = "", _
    Optional ByVal parameters As String = "")
    Dim bytes() As Byte, secret() As Byte, more() As Byte, asPrivate As Boolean, status As Long
    asPrivate = zulKeyIsPrivate(key)
    bytes = zulZeroName(fileName)
    more = zulZero(parameters)
    secret = zulZero(password)
    If asPrivate Then
        ' The library refuses the empty password, so that no private key is written unencrypted by mistake.
        status = KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), VarPtr(secret(0)), zulTextAt(more), ZUL_KEY_FORMAT_PEM)
    Else
        status = KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), zulTextAt(secret), zulTextAt(more), ZUL_KEY_FORMAT_PEM)
    End If
    zulWipe secret
    zulCheckStatus status
End Sub

Public Sub zulKeySaveUnencrypted(ByRef key() As Byte, ByVal fileName As String, _
    Optional ByVal options As Long = ZUL_KEY_FORMAT_PEM)
    Dim bytes() As Byte
    bytes = zulZeroName(fileName)
    zulCheckStatus KEY_SavePtr(VarPtr(bytes(0)), zulKeyAt(key), 0, 0, options)
End Sub

' "algorithm", "curve", "bits", "isPrivate", "fingerprint" and others.
Public Function zulKeyQuery(ByRef key() As Byte, ByVal item As String) As String
    Dim word() As Byte, room() As Byte, count As Long, kind As Long
    word = zulZero(item)
    kind = zulCheck(KEY_QueryPtr(0, 0, zulKeyAt(key), VarPtr(word(0)), ZUL_QUERY_GETTYPE))
    count = zulCheck(KEY_QueryPtr(0, 0, zulKeyAt(key), VarPtr(word(0)), 0))
    If kind = 1 Then
        zulKeyQuery = CStr(count)
    Else
        ReDim room(0 To count)
        count = zulCheck(KEY_QueryPtr(VarPtr(room(0)), count, zulKeyAt(key), VarPtr(word(0)), 0))
        zulKeyQuery = zulTextOf(room, count)
    End If
End Function

Public Function zulKeyIsPrivate(ByRef key() As Byte) As Boolean
    zulKeyIsPrivate = (zulKeyQuery(key, "isPrivate") = "1")
End Function

Public Function zulKeyMatches(ByRef privateKey() As Byte, ByRef publicKey() As Byte) As Boolean
    Dim status As Long
    status = KEY_MatchPtr(zulKeyAt(privateKey), zulKeyAt(publicKey))
    zulKeyMatches = (status = 0)
    If status <> NO_MATCH_ERROR Then zulCheckStatus status
End Function

' Raises unless the key's values are valid and belong together.
Public Sub zulKeyCheck(ByRef key() As Byte)
    zulCheckStatus KEY_CheckPtr(zulKeyAt(key), 0)
End Sub

' The secret shared with the owner of another key: derive a key from it with KDF_HkdfPtr.
Public Sub zulKeyAgree(ByRef secret() As Byte, ByRef privateKey() As Byte, ByRef publicKey() As Byte)
    Dim count As Long
    count = zulCheck(KEY_AgreePtr(0, 0, zulKeyAt(privateKey), zulKeyAt(publicKey), 0))
    ReDim secret(0 To count - 1)
    zulCheck KEY_AgreePtr(VarPtr(secret(0)), count, zulKeyAt(privateKey), zulKeyAt(publicKey), 0)
End Sub

' --- Signatures ---

Public Function zulSign(ByRef key() As Byte, ByRef data() As Byte, Optional ByVal algorithm As String = "", _
    Optional ByVal options As Long = 0) As Byte()
    Dim alg() As Byte, room() As Byte, count As Long
    alg = zulZero(algorithm)
    count = zulCheck(SIG_SignPtr(0, 0, zulDataAt(data), zulLength(data), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim room(0 To count - 1)
    count = zulCheck(SIG_SignPtr(VarPtr(room(0)), count, zulDataAt(data), zulLength(data), zulKeyAt(key), _
        VarPtr(alg(0)), options))
    ReDim Preserve room(0 To count - 1)
    zulSign = room
End Function

Public Function zulSignFile(ByRef key() As Byte, ByVal fileName As String, Optional ByVal algorithm As String = "", _
    Optional ByVal options As Long = 0) As Byte()
    Dim alg() As Byte, bytes() As Byte, room() As Byte, count As Long
    alg = zulZero(algorithm)
    bytes = zulZeroName(fileName)
    count = zulCheck(SIG_SignFilePtr(0, 0, VarPtr(bytes(0)), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim room(0 To count - 1)
    count = zulCheck(SIG_SignFilePtr(VarPtr(room(0)), count, VarPtr(bytes(0)), zulKeyAt(key), VarPtr(alg(0)), options))
    ReDim Preserve room(0 To count - 1)
    zulSignFile = room
End Function

' Raises unless the signature verifies.
Public Sub zulVerify(ByRef key() As Byte, ByRef signature() As Byte, ByRef data() As Byte, _
    Optional ByVal algorithm As String = "", Optional ByVal options As Long = 0)
    Dim alg() As Byte
    alg = zulZero(algorithm)
    zulCheckStatus SIG_VerifyPtr(zulDataAt(signature), zulLength(signature), zulDataAt(data), zulLength(data), _
        zulKeyAt(key), VarPtr(alg(0)), options)
End Sub

' Raises unless the signature verifies.
Public Sub zulVerifyFile(ByRef key() As Byte, ByRef signature() As Byte, ByVal fileName As String, _
    Optional ByVal algorithm As String = "", Optional ByVal options As Long = 0)
    Dim alg() As Byte, bytes() As Byte
    alg = zulZero(algorithm)
    bytes = zulZeroName(fileName)
    zulCheckStatus SIG_VerifyFilePtr(zulDataAt(signature), zulLength(signature), VarPtr(bytes(0)), zulKeyAt(key), _
        VarPtr(alg(0)), options)
End Sub

' --- Sealed files ---

' Lists are joined by ";": keys "age1..." and "AGE-SECRET-KEY-1..." or names of files of them. identity is a byte array
' that zulOpenFileWithIdentity takes, to be wiped.
Public Sub zulMakeIdentity(ByRef identity() As Byte)
    Dim count As Long
    count = zulCheck(SEAL_MakeIdentityPtr(0, 0, 0))
    ReDim identity(0 To count)
    zulCheck SEAL_MakeIdentityPtr(VarPtr(identity(0)), count, 0)
End Sub

Public Function zulRecipient(ByRef identity() As Byte) As String
    Dim room() As Byte, count As Long
    count = zulCheck(SEAL_RecipientPtr(0, 0, zulKeyAt(identity)))
    ReDim room(0 To count)
    count = zulCheck(SEAL_RecipientPtr(VarPtr(room(0)), count, zulKeyAt(identity)))
    zulRecipient = zulTextOf(room, count)
End Function

Public Sub zulSealFile(ByVal fileOut As String, ByVal fileIn As String, ByVal recipients As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, list() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(recipients)
    zulCheckStatus SEAL_FilePtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, options)
End Sub

Public Sub zulSealFileWithPassword(ByVal fileOut As String, ByVal fileIn As String, ByVal password As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    secret = zulZero(password)
    status = SEAL_FilePtr(VarPtr(target(0)), VarPtr(source(0)), 0, VarPtr(secret(0)), options)
    zulWipe secret
    zulCheckStatus status
End Sub

Public Sub zulOpenFile(ByVal fileOut As String, ByVal fileIn As String, ByVal identityFiles As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, list() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(identityFiles)
    status = SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, options)
    zulWipe list
    zulCheckStatus status
End Sub

Public Sub zulOpenFileWithIdentity(ByVal fileOut As String, ByVal fileIn As String, ByRef identity() As Byte, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    zulCheckStatus SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), zulKeyAt(identity), 0, options)
End Sub

Public Sub zulOpenFileWithPassword(ByVal fileOut As String, ByVal fileIn As String, ByVal password As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, status As Long
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    secret = zulZero(password)
    status = SEAL_OpenFilePtr(VarPtr(target(0)), VarPtr(source(0)), 0, VarPtr(secret(0)), options)
    zulWipe secret
    zulCheckStatus status
End Sub

' --- Certificates ---

' Certificates, requests and CRLs are described by keyword=value pairs, "CN=Alice;profile=client".
Public Sub zulSelfSign(ByVal certOut As String, ByRef key() As Byte, ByVal description As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, words() As Byte
    target = zulZeroName(certOut)
    words = zulZero(description)
    zulCheckStatus CERT_SelfSignPtr(VarPtr(target(0)), zulKeyAt(key), VarPtr(words(0)), options)
End Sub

Public Sub zulRequest(ByVal requestOut As String, ByRef key() As Byte, ByVal description As String, _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, words() As Byte
    target = zulZeroName(requestOut)
    words = zulZero(description)
    zulCheckStatus CERT_RequestPtr(VarPtr(target(0)), zulKeyAt(key), VarPtr(words(0)), options)
End Sub

' For the subject of a request.
Public Sub zulIssue(ByVal certOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByVal request As String, Optional ByVal description As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, asked() As Byte, words() As Byte
    target = zulZeroName(certOut)
    issuer = zulZeroName(issuerCert)
    asked = zulZeroName(request)
    words = zulZero(description)
    zulCheckStatus CERT_IssuePtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), VarPtr(asked(0)), _
        zulTextAt(words), options)
End Sub

' For the owner of a key.
Public Sub zulIssueForKey(ByVal certOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByRef subjectKey() As Byte, ByVal description As String, Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, words() As Byte
    target = zulZeroName(certOut)
    issuer = zulZeroName(issuerCert)
    words = zulZero(description)
    zulCheckStatus CERT_IssuePtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), zulKeyAt(subjectKey), _
        VarPtr(words(0)), options)
End Sub

' A list goes on from earlierCrl.
Public Sub zulIssueCrl(ByVal crlOut As String, ByVal issuerCert As String, ByRef issuerKey() As Byte, _
    ByVal revoked As String, Optional ByVal description As String = "", Optional ByVal earlierCrl As String = "", _
    Optional ByVal options As Long = 0)
    Dim target() As Byte, issuer() As Byte, earlier() As Byte, entries() As Byte, words() As Byte
    target = zulZeroName(crlOut)
    issuer = zulZeroName(issuerCert)
    earlier = zulZeroName(earlierCrl)
    entries = zulZero(revoked)
    words = zulZero(description)
    zulCheckStatus CERT_IssueCRLPtr(VarPtr(target(0)), VarPtr(issuer(0)), zulKeyAt(issuerKey), zulTextAt(earlier), _
        zulTextAt(entries), zulTextAt(words), options)
End Sub

Public Function zulCertQuery(ByVal cert As String, ByVal item As String) As String
    Dim source() As Byte, word() As Byte, room() As Byte, count As Long
    source = zulZeroName(cert)
    word = zulZero(item)
    count = zulCheck(CERT_QueryPtr(0, 0, VarPtr(source(0)), VarPtr(word(0)), 0))
    ReDim room(0 To count)
    count = zulCheck(CERT_QueryPtr(VarPtr(room(0)), count, VarPtr(source(0)), VarPtr(word(0)), 0))
    zulCertQuery = zulTextOf(room, count)
End Function

' A text for reading, or JSON with ZUL_CERT_JSON.
Public Function zulCertReport(ByVal fileOrText As String, Optional ByVal options As Long = 0) As String
    Dim source() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileOrText)
    count = zulCheck(CERT_ReportPtr(0, 0, VarPtr(source(0)), options))
    ReDim room(0 To count)
    count = zulCheck(CERT_ReportPtr(VarPtr(room(0)), count, VarPtr(source(0)), options))
    zulCertReport = zulTextOf(room, count)
End Function

' Raises unless the certificate is for a host, address or mailbox.
Public Sub zulCheckName(ByVal cert As String, ByVal hostOrAddress As String, Optional ByVal options As Long = 0)
    Dim source() As Byte, host() As Byte
    source = zulZeroName(cert)
    host = zulZero(hostOrAddress)
    zulCheckStatus CERT_CheckNamePtr(VarPtr(source(0)), VarPtr(host(0)), options)
End Sub

' Raises unless the certificate can be relied on. report is set before. A path ends at one of trusted and may lead through
' others. Lists are joined by ";".
Public Sub zulCheckPath(ByVal cert As String, ByVal trusted As String, ByVal others As String, ByVal evidence As String, _
    ByVal conditions As String, ByRef report As String, Optional ByVal options As Long = 0)
    Dim source() As Byte, chain() As Byte, anchors() As Byte, proof() As Byte, words() As Byte, room() As Byte
    Dim count As Long, status As Long, used As Long
    source = zulZeroName(cert)
    chain = zulZeroName(others)
    anchors = zulZeroName(trusted)
    proof = zulZeroName(evidence)
    words = zulZero(conditions)
    count = 1048576
    Do
        ReDim room(0 To count)
        status = CERT_CheckPathPtr(VarPtr(room(0)), count, VarPtr(source(0)), zulTextAt(chain), VarPtr(anchors(0)), _
            zulTextAt(proof), zulTextAt(words), options)
        used = 0
        Do While room(used) <> 0
            used = used + 1
        Loop
        count = count * 8
        ' A text that fills so much of the room may have been cut.
    Loop While (status = SHORT_BUF_ERROR Or used > count \ 16) And count <= kLongestReport
    report = zulTextOf(room, used)
    zulCheckStatus status
End Sub

' --- PKCS #12 ---

' certs: files or PEM joined by ";".
Public Sub zulP12Pack(ByVal fileOut As String, ByVal certs As String, ByRef key() As Byte, ByVal password As String, _
    Optional ByVal friendlyName As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, list() As Byte, secret() As Byte, label() As Byte, status As Long
    target = zulZeroName(fileOut)
    list = zulZeroName(certs)
    label = zulZero(friendlyName)
    secret = zulZero(password)
    status = P12_PackPtr(VarPtr(target(0)), zulTextAt(list), zulKeyAt(key), VarPtr(secret(0)), zulTextAt(label), options)
    zulWipe secret
    zulCheckStatus status
End Sub

' certsOut: the file for the certificates, or "".
Public Sub zulP12Unpack(ByRef key() As Byte, ByVal fileName As String, ByVal password As String, _
    Optional ByVal certsOut As String = "", Optional ByVal options As Long = 0)
    Dim target() As Byte, source() As Byte, secret() As Byte, room() As Byte, status As Long, count As Long
    target = zulZeroName(certsOut)
    source = zulZeroName(fileName)
    secret = zulZero(password)
    ReDim room(0 To kLongestKey)
    status = P12_UnpackPtr(zulTextAt(target), VarPtr(room(0)), kLongestKey, VarPtr(source(0)), VarPtr(secret(0)), options)
    count = -1
    If status = 0 Then
        count = 0
        Do While room(count) <> 0
            count = count + 1
        Loop
    End If
    zulKeepKey key, room, count
    zulWipe secret
    zulWipe room
    zulCheckStatus status
End Sub

' Without a password it shows what is visible without one.
Public Function zulP12List(ByVal fileName As String, Optional ByVal password As String = "", _
    Optional ByVal options As Long = 0) As String
    Dim source() As Byte, secret() As Byte, room() As Byte, count As Long
    source = zulZeroName(fileName)
    secret = zulZero(password)
    count = P12_ListPtr(0, 0, VarPtr(source(0)), zulTextAt(secret), options)
    If count > 0 Then
        ReDim room(0 To count)
        count = P12_ListPtr(VarPtr(room(0)), count, VarPtr(source(0)), zulTextAt(secret), options)
    End If
    zulWipe secret
    zulP12List = zulTextOf(room, zulCheck(count))
End Function

' --- Messages (CMS) with RSA keys ---

' certs: files or PEM joined by ";", the signer's first.
Public Sub zulCmsSign(ByVal fileOut As String, ByVal fileIn As String, ByVal certs As String, ByRef key() As Byte, _
    Optional ByVal options As Long = ZUL_HASH_SHA256)
    Dim target() As Byte, source() As Byte, list() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(certs)
    zulCheckStatus CMS_MakeSigDataPtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), zulKeyAt(key), options)
End Sub

' Raises unless the signature verifies. hexDigest: of content that the message does not carry.
Public Sub zulCmsVerify(ByVal fileIn As String, Optional ByVal signerCert As String = "", _
    Optional ByVal hexDigest As String = "")
    Dim source() As Byte, signer() As Byte, digest() As Byte
    source = zulZeroName(fileIn)
    signer = zulZeroName(signerCert)
    digest = zulZero(hexDigest)
    zulCheckStatus CMS_VerifySigDataPtr(VarPtr(source(0)), zulTextAt(signer), zulTextAt(digest), 0)
End Sub

Public Sub zulCmsContent(ByVal fileOut As String, ByVal fileIn As String)
    Dim target() As Byte, source() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    zulCheck CMS_ReadSigDataPtr(VarPtr(target(0)), VarPtr(source(0)), 0)
End Sub

' Raises, and leaves no message, unless the owners of all certificates can read it; there may be ten.
Public Sub zulCmsEncrypt(ByVal fileOut As String, ByVal fileIn As String, ByVal certs As String, _
    Optional ByVal options As Long = ZUL_CMS_CIPHER_AES256)
    Dim target() As Byte, source() As Byte, list() As Byte, parts() As String, served As Long, i As Long
    parts = Split(certs, ";")
    If UBound(parts) < 0 Or UBound(parts) > 9 Then zulRefuse OUT_OF_RANGE_ERROR, "a message has 1 to 10 recipients"
    For i = 0 To UBound(parts)
        If Len(Trim$(parts(i))) = 0 Then zulRefuse BAD_PARAM_ERROR, "a certificate without a name"
    Next
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    list = zulZeroName(certs)
    served = zulCheck(CMS_MakeEnvDataPtr(VarPtr(target(0)), VarPtr(source(0)), VarPtr(list(0)), 0, 0, options))
    If served <> UBound(parts) + 1 Then
        ' A message that cannot be deleted must not hide that it is not for everybody.
        On Error Resume Next
        Kill fileOut
        On Error GoTo 0
        zulFail BAD_KEY_ERROR ' the library's text tells the certificate
    End If
End Sub

Public Sub zulCmsDecrypt(ByVal fileOut As String, ByVal fileIn As String, ByRef key() As Byte, _
    Optional ByVal cert As String = "")
    Dim target() As Byte, source() As Byte, recipient() As Byte
    target = zulZeroName(fileOut)
    source = zulZeroName(fileIn)
    recipient = zulZeroName(cert)
    zulCheck CMS_ReadEnvDataPtr(VarPtr(target(0)), VarPtr(source(0)), zulTextAt(recipient), zulKeyAt(key), 0)
End Sub
