object TwinForm: TTwinForm
end
